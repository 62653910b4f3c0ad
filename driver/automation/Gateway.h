#pragma once

#include <windows.h>

#include <oaidl.h>

#include <array>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "automation/Member.h"
#include "automation/Variant.h"

namespace zelbar {

class Object;

/// The one door for calls that leave the driver. It remembers which number a member's name stands for, by
/// class of object, so that a name is asked once and not once a call; it counts what it sends; and it turns
/// every failure into one Fault.
class Gateway {
  public:
    /// What has been sent to one server.
    struct Calls {
        long lookUps = 0;
        long invocations = 0;
    };

    enum class Kind { Call, Put, PutReference };

    /// A new object of the class that a ProgID names. Throws when there is none.
    Object create(Server server, const wchar_t* progId, ObjectClass objectClass);

    /// The object of that class that a running server offers to all; none is started. Throws when there is
    /// none.
    Object running(Server server, const wchar_t* progId, ObjectClass objectClass);

    /// One call on `target`; the arguments in the order in which a caller writes them. Throws a Fault.
    Variant invoke(IDispatch& target, Server server, ObjectClass objectClass, const wchar_t* name, Kind kind,
                   std::initializer_list<Variant> arguments);

    const Calls& calls(Server server) const { return calls_[static_cast<size_t>(server)]; }

  private:
    struct Key {
        Server server;
        ObjectClass objectClass;
        std::wstring_view name;  // names are literals that live as long as the driver
        auto operator<=>(const Key&) const = default;
    };

    DISPID lookUp(IDispatch& target, Server server, const wchar_t* name);

    std::map<Key, DISPID> numbers_;
    std::array<Calls, kServerCount> calls_{};
};

}  // namespace zelbar
