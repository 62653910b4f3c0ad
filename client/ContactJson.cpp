#include "client/ContactJson.h"

#include "client/Json.h"

namespace pimcall {
namespace {

std::wstring listJson(const std::vector<LabelledValue>& list, const wchar_t* valueName) {
    return json::array(list, [valueName](const LabelledValue& entry) {
        return json::Object().text(L"label", entry.label).text(valueName, entry.value).str();
    });
}

}  // namespace

std::wstring contactJson(const ContactCard& card) {
    return json::Object()
        .boolean(L"inPim", card.inPim)
        .text(L"fullName", card.fullName)
        .text(L"firstName", card.firstName)
        .text(L"lastName", card.lastName)
        .text(L"company", card.company)
        .text(L"department", card.department)
        .text(L"mainNumber", card.mainNumber)
        .text(L"mainHomeNumber", card.mainHomeNumber)
        .raw(L"numbers", listJson(card.numbers, L"number"))
        .text(L"mainEmail", card.mainEmail)
        .raw(L"emails", listJson(card.emails, L"address"))
        .text(L"photo", card.photo)
        .text(L"contactId", card.contactId)
        .text(L"storeId", card.storeId)
        .text(L"employeeId", card.employeeId)
        .text(L"categoryId", card.categoryId)
        .text(L"assistantId", card.assistantId)
        .str();
}

}  // namespace pimcall
