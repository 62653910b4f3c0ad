#include "standin/common/ControlObject.h"

namespace standin {
namespace {

// Arguments "HRESULT, [description]" from the given position on.
Failure failureFrom(const Arguments& arguments, std::size_t position) {
    Failure failure{arguments.number(position)};
    if (arguments.has(position + 1)) failure.description = arguments.text(position + 1);
    return failure;
}

}  // namespace

const MemberTable& ControlObject::members() const {
    using Self = ControlObject;
    static const MemberTable table(L"StandIn",
                                   {
                                       method<&Self::failCall>(L"FailCall", 1, 2, 3),
                                       method<&Self::failMember>(L"FailMember", 2, 2, 4),
                                       method<&Self::failAll>(L"FailAll", 3, 1, 2),
                                       method<&Self::failCreation>(L"FailCreation", 4, 1),
                                       method<&Self::hang>(L"Hang", 5, 2),
                                       method<&Self::hangMember>(L"HangMember", 6, 2),
                                       method<&Self::quitAt>(L"QuitAt", 7, 1),
                                       method<&Self::quitAtMember>(L"QuitAtMember", 8, 1),
                                       method<&Self::clear>(L"Clear", 9),
                                       readOnly<&Self::liveObjects>(L"LiveObjects", 20),
                                       readOnly<&Self::lookUps>(L"LookUps", 21),
                                       readOnly<&Self::invocations>(L"Invocations", 22),
                                       readOnly<&Self::callCount>(L"CallCount", 23, 1),
                                       readOnly<&Self::lookUpCount>(L"LookUpCount", 24, 1),
                                       readOnly<&Self::calls>(L"Calls", 25),
                                       method<&Self::resetCounters>(L"ResetCounters", 26),
                                       property<&Self::option, &Self::setOption>(L"Option", 27, 1),
                                       readOnly<&Self::processId>(L"ProcessId", 28),
                                   });
    return table;
}

void ControlObject::failCall(const Arguments& arguments) {
    server().faults().failCall(arguments.number(0), failureFrom(arguments, 1));
}

void ControlObject::failMember(const Arguments& arguments) {
    std::optional<long> times;
    if (arguments.has(3)) times = arguments.number(3);
    server().faults().failMember(arguments.text(0), failureFrom(arguments, 1), times);
}

void ControlObject::failAll(const Arguments& arguments) {
    server().faults().failAll(failureFrom(arguments, 0));
}

void ControlObject::hang(const Arguments& arguments) {
    server().faults().hangCall(arguments.number(0), static_cast<DWORD>(arguments.number(1)));
}

void ControlObject::hangMember(const Arguments& arguments) {
    server().faults().hangMember(arguments.text(0), static_cast<DWORD>(arguments.number(1)));
}

std::wstring ControlObject::calls() const {
    std::wstring list;
    for (const std::wstring& call : server().calls().calls()) list += call + L"\r\n";
    return list;
}

void ControlObject::setOption(const Arguments& arguments) {
    server().setOption(arguments.text(0), toText(arguments.assigned()));
}

}  // namespace standin
