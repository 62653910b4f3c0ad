#include "standin/common/CallLog.h"

#include "standin/common/MemberTable.h"

namespace standin {
namespace {

std::wstring qualified(const MemberTable& table, const Member& member) {
    return std::wstring(table.className()) + L"." + member.name;
}

}  // namespace

bool meansMember(std::wstring_view name, const MemberTable& table, const Member& member) {
    return sameName(name, member.name) || sameName(name, qualified(table, member));
}

void CallLog::noteLookUp(const MemberTable& table, const Member* found) noexcept {
    ++lookUps_;
    if (found) ++lookUpCounts_[{&table, found}];
}

void CallLog::noteInvocation(const MemberTable& table, const Member& member) {
    ++invocations_;
    ++invocationCounts_[{&table, &member}];
    if (recent_.size() == kRemembered) recent_.pop_front();
    recent_.emplace_back(&table, &member);
}

void CallLog::reset() noexcept {
    lookUps_ = invocations_ = abandoned_ = 0;
    lookUpCounts_.clear();
    invocationCounts_.clear();
    recent_.clear();
}

long CallLog::sum(const std::map<Key, long>& counts, std::wstring_view name) {
    long total = 0;
    for (const auto& [key, count] : counts) {
        if (meansMember(name, *key.first, *key.second)) total += count;
    }
    return total;
}

long CallLog::lookUps(std::wstring_view name) const {
    return sum(lookUpCounts_, name);
}

long CallLog::invocations(std::wstring_view name) const {
    return sum(invocationCounts_, name);
}

std::vector<std::wstring> CallLog::calls() const {
    std::vector<std::wstring> names;
    for (const auto& [table, member] : recent_) names.push_back(qualified(*table, *member));
    return names;
}

}  // namespace standin
