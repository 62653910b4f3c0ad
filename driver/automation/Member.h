#pragma once

namespace zelbar {

/// The servers that the driver talks to.
enum class Server { Outlook, Dao, Client };

/// The class of an object within its server, as far as its member numbers go: objects of one class answer to
/// the same numbers, so a number looked up once serves all of them. Outlook's own class numbers are used.
using ObjectClass = int;

/// Nothing is known of the object: its members are looked up at each use.
inline constexpr ObjectClass kUnknownClass = -1;
/// The object can be anything that Outlook holds: it is asked for its class once, before its first use.
inline constexpr ObjectClass kAskForClass = -2;

/// A member's name, and the class of the object that it gives, if it gives one.
struct Member {
    const wchar_t* name;
    ObjectClass result = kUnknownClass;
};

}  // namespace zelbar
