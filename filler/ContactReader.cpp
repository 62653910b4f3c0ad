#include "filler/ContactReader.h"

#include <utility>

#include "automation/OutlookNames.h"
#include "filler/ContactText.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;

constexpr zelbar::Member kTelephones[] = {
    outlook::BusinessTelephoneNumber,
    outlook::Business2TelephoneNumber,
    outlook::HomeTelephoneNumber,
    outlook::Home2TelephoneNumber,
    outlook::MobileTelephoneNumber,
    outlook::PrimaryTelephoneNumber,
    outlook::AssistantTelephoneNumber,
    outlook::CarTelephoneNumber,
    outlook::CallbackTelephoneNumber,
    outlook::CompanyMainTelephoneNumber,
    outlook::ISDNNumber,
    outlook::BusinessFaxNumber,
    outlook::HomeFaxNumber,
    outlook::OtherTelephoneNumber,
    outlook::OtherFaxNumber,
    outlook::PagerNumber,
    outlook::RadioTelephoneNumber,
    outlook::TelexNumber,
    outlook::TTYTDDTelephoneNumber,
};

std::wstring readName(const zelbar::Object& item) {
    NameParts parts{item.text(outlook::LastName), item.text(outlook::FirstName), {}, {}};
    std::wstring name = searchName(parts);
    if (!name.empty()) return name;
    parts.company = item.text(outlook::CompanyName);
    parts.fileAs = item.text(outlook::FileAs);
    return searchName(parts);
}

}  // namespace

Contact readContact(const zelbar::Object& item, std::wstring entryId) {
    std::vector<std::wstring> numbers;
    for (const zelbar::Member& telephone : kTelephones) numbers.push_back(item.text(telephone));
    Contact contact{std::move(entryId), {}, storedNumbers(numbers)};
    if (!contact.numbers.empty()) contact.name = readName(item);
    return contact;
}

}  // namespace filler
