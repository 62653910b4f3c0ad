#include "standin/common/FaultScript.h"

#include "standin/common/CallLog.h"
#include "standin/common/Error.h"

namespace standin {
namespace {

Error errorOf(const Failure& failure) {
    return failure.description ? Error(failure.code, *failure.description) : Error::plain(failure.code);
}

}  // namespace

void FaultScript::failCall(long n, Failure failure) {
    rules_.push_back({.deed = Deed::Fail, .countdown = n, .failure = std::move(failure)});
}

void FaultScript::failMember(std::wstring name, Failure failure, std::optional<long> times) {
    rules_.push_back(
        {.deed = Deed::Fail, .member = std::move(name), .times = times, .failure = std::move(failure)});
}

void FaultScript::failAll(Failure failure) {
    all_ = std::move(failure);
}

void FaultScript::hangCall(long n, DWORD milliseconds) {
    rules_.push_back({.deed = Deed::Hang, .countdown = n, .milliseconds = milliseconds});
}

void FaultScript::hangMember(std::wstring name, DWORD milliseconds) {
    rules_.push_back({.deed = Deed::Hang, .member = std::move(name), .milliseconds = milliseconds});
}

void FaultScript::quitAtCall(long n) {
    rules_.push_back({.deed = Deed::Quit, .countdown = n});
}

void FaultScript::quitAtMember(std::wstring name) {
    rules_.push_back({.deed = Deed::Quit, .member = std::move(name), .times = 1});
}

void FaultScript::meanwhileAtCall(long n, std::function<void()> action) {
    rules_.push_back({.deed = Deed::Meanwhile, .countdown = n, .action = std::move(action)});
}

void FaultScript::clear() {
    rules_.clear();
    all_.reset();
    creation_ = S_OK;
    hook_ = nullptr;
}

std::optional<Value> FaultScript::meet(Moment moment, const Member* member) const {
    // A copy: what it does may give the order for another one.
    const Hook hook = hook_;
    return hook ? hook(moment, member) : std::nullopt;
}

bool FaultScript::applies(Rule& rule, const MemberTable& table, const Member& member) {
    if (rule.spent) return false;
    if (rule.countdown) {
        rule.spent = --*rule.countdown <= 0;
        return rule.spent;
    }
    if (!meansMember(rule.member, table, member)) return false;
    if (rule.times) rule.spent = --*rule.times <= 0;
    return true;
}

void FaultScript::beforeLookUp() const {
    if (all_) throw errorOf(*all_);
    meet(Moment::LookUp);
}

bool FaultScript::beforeInvocation(const MemberTable& table, const Member& member) {
    bool quit = false;
    std::vector<std::function<void()>> actions;
    std::optional<Failure> failure = all_;
    for (Rule& rule : rules_) {
        if (!applies(rule, table, member)) continue;
        if (rule.deed == Deed::Hang) Sleep(rule.milliseconds);
        if (rule.deed == Deed::Quit) quit = true;
        if (rule.deed == Deed::Meanwhile) actions.push_back(std::move(rule.action));
        if (rule.deed == Deed::Fail && !failure) failure = rule.failure;
    }
    std::erase_if(rules_, [](const Rule& rule) { return rule.spent; });
    // Last, since they call in again and may order faults of their own.
    for (const auto& action : actions) action();
    if (!quit && failure) throw errorOf(*failure);
    return quit;
}

HRESULT FaultScript::creationOutcome() const noexcept {
    if (FAILED(creation_)) return creation_;
    return all_ ? all_->code : S_OK;
}

}  // namespace standin
