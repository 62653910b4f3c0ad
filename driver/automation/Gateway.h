#pragma once

#include <windows.h>

#include <oaidl.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "automation/CallClock.h"
#include "automation/Member.h"
#include "automation/Variant.h"

namespace zelbar {

class Object;
class OutgoingCalls;

/// The class that a ProgID names. Throws a Fault when there is none.
CLSID classOf(const wchar_t* progId);

/// The one door for calls that leave the driver. It remembers which number a member's name stands for, by
/// class of object, so that a name is asked once and not once a call, and it turns every failure into one
/// Fault. Outlook is waited for as the deadline in force says (see `Deadline`), the other servers, which are
/// in process, for as long as they take. Copies are the same door. Every object keeps one, so that its calls
/// come back even where the driver's own has gone meanwhile.
class Gateway {
  public:
    enum class Kind { Call, Put, PutReference };

    /// The clock must outlive the gateway and all objects that come through it.
    explicit Gateway(CallClock& clock = systemClock());

    /// A new object of the class that a ProgID names. Throws when there is none.
    Object create(Server server, const wchar_t* progId, ObjectClass objectClass) const;

    /// The object of that class that a running server offers to all; none is started. Throws when there is
    /// none.
    Object running(Server server, const wchar_t* progId, ObjectClass objectClass) const;

    /// One call on `target`; the arguments in the order in which a caller writes them. Throws a Fault.
    Variant invoke(IDispatch& target, Server server, ObjectClass objectClass, const Member& member, Kind kind,
                   std::initializer_list<Variant> arguments) const;

    /// Gives a reference back to its server.
    void release(Server server, Com<IUnknown> reference) const noexcept;

    /// How calls to Outlook wait; for `Deadline`.
    const std::shared_ptr<OutgoingCalls>& calls() const { return calls_; }

  private:
    struct Key {
        Server server;
        ObjectClass objectClass;
        std::wstring_view name;  // names are literals that live as long as the driver
        auto operator<=>(const Key&) const = default;
    };

    template <class Call>
    HRESULT carryOut(Server server, const wchar_t* name, unsigned manner, const Call& call) const;
    DISPID lookUp(IDispatch& target, Server server, const wchar_t* name) const;

    std::shared_ptr<std::map<Key, DISPID>> numbers_ = std::make_shared<std::map<Key, DISPID>>();
    std::shared_ptr<OutgoingCalls> calls_;
};

}  // namespace zelbar
