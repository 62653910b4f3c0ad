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

/// What a call does beside answering; the values are added. Putting a property is always plain.
enum Manner : unsigned {
    kPlain = 0,
    kLasting =
        1,  ///< Asked twice it may be done twice, so a try that may have been carried out is the only one.
    kAsksUser = 2,  ///< Outlook may ask its user first, who takes his time.
};

/// A member's name, the class of the object that it gives, if it gives one, and what calling it does.
struct Member {
    const wchar_t* name;
    ObjectClass result = kUnknownClass;
    unsigned manner = kPlain;
};

}  // namespace zelbar
