#include "filler/ContactReader.h"

#include <utility>

#include "automation/OutlookNames.h"
#include "filler/ContactText.h"
#include "support/TelephoneNumbers.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;

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
    numbers.reserve(zelbar::kTelephoneProperties.size());
    for (const zelbar::TelephoneProperty& telephone : zelbar::kTelephoneProperties)
        numbers.push_back(item.text(telephone.member));
    Contact contact{std::move(entryId), {}, storedNumbers(numbers)};
    if (!contact.numbers.empty()) contact.name = readName(item);
    return contact;
}

}  // namespace filler
