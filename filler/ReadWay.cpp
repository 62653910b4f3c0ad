#include "filler/ReadWay.h"

#include "support/OutlookGuard.h"

namespace filler {

ChosenWay chooseWay(std::optional<ReadWay> asked, const std::wstring& version) {
    if (asked) return {*asked, L"as --read says"};
    const zelbar::TableUse use = zelbar::tableUse(version);
    return {use.isAllowed ? ReadWay::Table : ReadWay::Items, use.reason};
}

}  // namespace filler
