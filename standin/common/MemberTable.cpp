#include "standin/common/MemberTable.h"

#include <algorithm>
#include <cwctype>
#include <stdexcept>

namespace standin {
namespace {

wchar_t folded(wchar_t letter) noexcept {
    return static_cast<wchar_t>(std::towlower(letter));
}

bool nameLess(std::wstring_view left, std::wstring_view right) noexcept {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](wchar_t a, wchar_t b) { return folded(a) < folded(b); });
}

}  // namespace

bool sameName(std::wstring_view left, std::wstring_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t a, wchar_t b) { return folded(a) == folded(b); });
}

MemberTable::MemberTable(const wchar_t* className, std::vector<Member> members, const wchar_t* defaultMember,
                         const MemberTable* base)
    : className_(className), members_(std::move(members)) {
    if (base) members_.insert(members_.end(), base->members_.begin(), base->members_.end());
    for (const Member& member : members_) {
        byName_.push_back(&member);
        byId_.push_back(&member);
    }
    std::ranges::sort(byName_, nameLess, &Member::name);
    std::ranges::sort(byId_, {}, &Member::id);
    const auto sameAsNext = [](const Member* a, const Member* b) { return sameName(a->name, b->name); };
    if (std::ranges::adjacent_find(byName_, sameAsNext) != byName_.end() ||
        std::ranges::adjacent_find(byId_, {}, &Member::id) != byId_.end()) {
        throw std::logic_error("two members share a name or a number");
    }
    if (defaultMember) default_ = byName(defaultMember);
}

const Member* MemberTable::byName(std::wstring_view name) const noexcept {
    const auto found = std::ranges::lower_bound(byName_, name, nameLess, &Member::name);
    return found != byName_.end() && sameName((*found)->name, name) ? *found : nullptr;
}

const Member* MemberTable::byId(DISPID id) const noexcept {
    if (id == DISPID_VALUE && default_) return default_;
    const auto found = std::ranges::lower_bound(byId_, id, {}, &Member::id);
    return found != byId_.end() && (*found)->id == id ? *found : nullptr;
}

}  // namespace standin
