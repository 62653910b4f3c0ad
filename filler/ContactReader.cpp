#include "filler/ContactReader.h"

#include <utility>

#include "automation/OutlookNames.h"
#include "filler/ContactText.h"
#include "support/TelephoneNumbers.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using Read = std::function<std::wstring(const zelbar::Member&)>;

std::wstring readName(const Read& read) {
    NameParts parts{read(outlook::LastName), read(outlook::FirstName), {}, {}};
    std::wstring name = searchName(parts);
    if (!name.empty()) return name;
    parts.company = read(outlook::CompanyName);
    parts.fileAs = read(outlook::FileAs);
    return searchName(parts);
}

}  // namespace

Contact readContact(std::wstring entryId, const Read& read) {
    std::vector<std::wstring> numbers;
    numbers.reserve(zelbar::kTelephoneProperties.size());
    for (const zelbar::TelephoneProperty& telephone : zelbar::kTelephoneProperties)
        numbers.push_back(read(telephone.member));
    Contact contact{std::move(entryId), {}, storedNumbers(numbers)};
    if (!contact.numbers.empty()) contact.name = readName(read);
    return contact;
}

Contact readContact(const zelbar::Object& item, std::wstring entryId) {
    return readContact(std::move(entryId),
                       [&](const zelbar::Member& property) { return item.text(property); });
}

}  // namespace filler
