#include "filler/ReadWay.h"

#include "support/OutlookGuard.h"
#include "support/Text.h"

namespace filler {

ChosenWay chooseWay(std::optional<ReadWay> asked, const std::wstring& version) {
    constexpr long kFirstWithTables = 12;
    if (asked) return {*asked, L"as --read says"};
    if (zelbar::leadingInteger(version) < kFirstWithTables)
        return {ReadWay::Items, L"Outlook " + version + L" has no tables"};
    const zelbar::OutlookGuard guard = zelbar::outlookGuard(version);
    return {guard.isSilent ? ReadWay::Table : ReadWay::Items,
            guard.isSilent ? L"Outlook's guard does not ask: " + guard.reason
                           : L"a table could make Outlook ask its user: " + guard.reason};
}

}  // namespace filler
