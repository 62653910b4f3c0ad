#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standin/common/Value.h"

namespace standin {

class MemberTable;
struct Member;

// How a call is to fail: with a description as an automation exception, without as the bare HRESULT
// (0x80010001 call rejected, 0x800706BA server gone, ...).
struct Failure {
    HRESULT code = E_FAIL;
    std::optional<std::wstring> description = {};
};

// Faults that a test has ordered. Calls are counted from the moment of the order, the next one being number
// 1; only invocations count, since a client may remember what it has looked up.
class FaultScript {
  public:
    void failCall(long n, Failure failure);
    // Every invocation of the member ("GetItemFromID" or "NameSpace.GetItemFromID") until cleared,
    // or only as many as given.
    void failMember(std::wstring name, Failure failure, std::optional<long> times = {});
    // Everything, name look-ups and activation included, until cleared: the server that rejects every call.
    void failAll(Failure failure);
    // Makes a new object of the server's root class impossible until cleared.
    void failCreation(HRESULT code) { creation_ = code; }
    void hangCall(long n, DWORD milliseconds);
    void hangMember(std::wstring name, DWORD milliseconds);
    void quitAtCall(long n);
    void quitAtMember(std::wstring name);
    // What the client does on its own thread while it waits for that call: a proxy serves its messages
    // meanwhile.
    void meanwhileAtCall(long n, std::function<void()> action);
    // Meets everything that reaches the server: it may throw an Error, call in, or answer in the call's
    // place. At a release, when nobody holds the object any more, it may only call in. The member is empty
    // but for calls.
    enum class Moment { LookUp, Call, Release };
    using Hook = std::function<std::optional<Value>(Moment, const Member*)>;
    void onEachCall(Hook hook) { hook_ = std::move(hook); }
    void clear();

    // For the server. Each may sleep, and throws the Error that the call is to report.
    void beforeLookUp() const;
    std::optional<Value> meet(Moment moment, const Member* member = nullptr) const;
    // True when the server is to quit instead of answering.
    bool beforeInvocation(const MemberTable& table, const Member& member);
    // S_OK or how the creation of the root object fails.
    HRESULT creationOutcome() const noexcept;

  private:
    enum class Deed { Fail, Hang, Quit, Meanwhile };
    struct Rule {
        Deed deed = Deed::Fail;
        // Either a call number that counts down, or a member's name with an optional number of times.
        std::optional<long> countdown = {};
        std::wstring member = {};
        std::optional<long> times = {};
        Failure failure = {};
        DWORD milliseconds = 0;
        std::function<void()> action = {};
        bool spent = false;
    };
    static bool applies(Rule& rule, const MemberTable& table, const Member& member);

    std::vector<Rule> rules_;
    std::optional<Failure> all_;
    HRESULT creation_ = S_OK;
    Hook hook_;
};

}  // namespace standin
