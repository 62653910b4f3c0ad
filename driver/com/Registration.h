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

/// Writes the class, with this module as its in-process server for single-threaded apartments, and the
/// embedded type library. Returns the first failure, and takes back then what it has written.
HRESULT registerServer(const RegisteredClass& what);

/// Takes all of it out again; what is not there is no failure.
HRESULT unregisterServer(const RegisteredClass& what);

}  // namespace zelbar
