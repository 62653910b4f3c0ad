#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// A class as the registry describes it.
struct RegisteredClass {
    GUID classId;
    std::wstring progId;
    std::wstring description;
};

/// For whom a class is registered: all users of the machine, which takes an administrator, or the one at
/// work.
enum class Audience { Machine, User };

/// Writes the class, with this module as its in-process server for single-threaded apartments, and the
/// embedded type library. Returns the first failure, and takes back then what it has written.
HRESULT registerServer(const RegisteredClass& what, Audience audience = Audience::Machine);

/// Takes all of it out again; what is not there is no failure, and another version of the type library stays.
HRESULT unregisterServer(const RegisteredClass& what, Audience audience = Audience::Machine);

}  // namespace zelbar
