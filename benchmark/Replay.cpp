#include "benchmark/Replay.h"

#include <stdexcept>

#include "automation/OutlookNames.h"

namespace benchmark {

namespace {

namespace outlook = zelbar::outlook;
using zelbar::Member;
using zelbar::ObjectClass;

/// Outlook's classes as the stand-in calls them.
struct KnownClass {
    const wchar_t* name;
    ObjectClass number;
};
constexpr KnownClass kClasses[] = {
    {L"Application", outlook::kApplication},
    {L"NameSpace", outlook::kNameSpace},
    {L"MAPIFolder", outlook::kFolder},
    {L"ContactItem", outlook::kContact},
    {L"UserProperties", outlook::kUserProperties},
    {L"UserProperty", outlook::kUserProperty},
    {L"Attachments", outlook::kAttachments},
    {L"Attachment", outlook::kAttachment},
};

ObjectClass numberOf(const std::wstring& className) {
    for (const KnownClass& known : kClasses)
        if (className == known.name) return known.number;
    throw std::runtime_error("the replay does not know a class that the driver uses");
}

/// Calls that give an object or take arguments; all others are reads of a property.
struct KnownCall {
    const wchar_t* call;
    const wchar_t* result;
    std::vector<std::wstring> arguments;
};

}  // namespace

CallCounter::CallCounter(const Object& application) : control_(application.object(Member{L"StandIn"})) {}

void CallCounter::reset() const {
    control_.call(Member{L"ResetCounters"});
}
long CallCounter::lookUps() const {
    return control_.integer(Member{L"LookUps"});
}
long CallCounter::invocations() const {
    return control_.integer(Member{L"Invocations"});
}
std::vector<std::wstring> CallCounter::calls() const {
    std::vector<std::wstring> result;
    const std::wstring text = control_.text(Member{L"Calls"});
    for (size_t start = 0, end; (end = text.find(L"\r\n", start)) != std::wstring::npos; start = end + 2)
        result.push_back(text.substr(start, end - start));
    return result;
}

Replay::Replay(const std::vector<std::wstring>& calls, ContactPlace contact, Client client)
    : contact_(std::move(contact)), client_(client) {
    for (const std::wstring& call : calls) {
        const bool asksForClass = call.ends_with(L".Class");
        if (client != Client::LateBound || !asksForClass) steps_.push_back(stepOf(call));
    }
}

Replay::Step Replay::stepOf(const std::wstring& call) const {
    const KnownCall kCalls[] = {
        {L"Application.GetNamespace", L"NameSpace", {L"MAPI"}},
        {L"NameSpace.GetItemFromID", L"ContactItem", {contact_.entryId, contact_.storeId}},
        {L"ContactItem.Parent", L"MAPIFolder", {}},
        {L"ContactItem.UserProperties", L"UserProperties", {}},
        {L"UserProperties.Item", L"UserProperty", {L"EmployeeId"}},
        {L"UserProperties.Find", L"UserProperty", {L"EmployeeId"}},
    };
    const size_t dot = call.find(L'.');
    Step step{call.substr(0, dot), call.substr(dot + 1), {}, zelbar::kUnknownClass, {}};
    numberOf(step.objectClass);
    for (const KnownCall& known : kCalls)
        if (call == known.call) {
            step.resultClass = known.result;
            step.arguments = known.arguments;
            if (client_ != Client::LateBound) step.resultNumber = numberOf(step.resultClass);
        }
    return step;
}

void Replay::run() {
    for (const Step& step : steps_) {
        if (step.objectClass == L"Application" && !step.resultClass.empty())
            objects_[step.objectClass] = newApplication();
        Object result = perform(step);
        if (!step.resultClass.empty()) objects_[step.resultClass] = std::move(result);
    }
    objects_.clear();
}

Object Replay::newApplication() {
    if (client_ == Client::Driver) return class_.newApplication();
    return gateway_.create(zelbar::Server::Outlook, outlook::kProgId,
                           client_ == Client::EarlyBound ? outlook::kApplication : zelbar::kUnknownClass);
}

Object Replay::perform(const Step& step) {
    const Object& object = objects_.at(step.objectClass);
    const Member member{step.member.c_str(), step.resultNumber};
    if (step.resultClass.empty()) {
        object.get(member);
        return {};
    }
    switch (step.arguments.size()) {
        case 0:
            return object.object(member);
        case 1:
            return object.object(member, step.arguments[0]);
        default:
            return object.object(member, step.arguments[0], step.arguments[1]);
    }
}

}  // namespace benchmark
