#pragma once

#include "standin/common/Object.h"

namespace standin {

// The hidden property StandIn of a server's root object: orders faults and reads counters from any client.
// Its own calls are neither counted nor failed.
class ControlObject : public Object {
  public:
    explicit ControlObject(Server& server) : Object(server, Accounting::Exempt) {}

  protected:
    const MemberTable& members() const override;

  private:
    void failCall(const Arguments& arguments);
    void failMember(const Arguments& arguments);
    void failAll(const Arguments& arguments);
    void failCreation(const Arguments& arguments) { server().faults().failCreation(arguments.number(0)); }
    void hang(const Arguments& arguments);
    void hangMember(const Arguments& arguments);
    void quitAt(const Arguments& arguments) { server().faults().quitAtCall(arguments.number(0)); }
    void quitAtMember(const Arguments& arguments) { server().faults().quitAtMember(arguments.text(0)); }
    void clear() { server().faults().clear(); }
    long liveObjects() const { return server().liveObjects(); }
    long lookUps() const { return server().calls().lookUps(); }
    long invocations() const { return server().calls().invocations(); }
    long callCount(const Arguments& arguments) { return server().calls().invocations(arguments.text(0)); }
    long lookUpCount(const Arguments& arguments) { return server().calls().lookUps(arguments.text(0)); }
    std::wstring calls() const;
    void resetCounters() { server().calls().reset(); }
    std::wstring option(const Arguments& arguments) { return server().option(arguments.text(0)); }
    void setOption(const Arguments& arguments);
    long processId() const { return static_cast<long>(GetCurrentProcessId()); }
};

// The row for the root class's table; the class has a member function that returns Ref<ControlObject>.
template <auto Get>
constexpr Member controlMember() {
    Member member = readOnly<Get>(L"StandIn", 0x7E57);
    member.control = true;
    return member;
}

}  // namespace standin
