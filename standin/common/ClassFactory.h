#pragma once

#include <functional>

#include "standin/common/Object.h"

namespace standin {

// A class factory that makes the root object, or fails as the server's fault script says.
Ref<IClassFactory> makeFactory(Server& server, std::function<Ref<Object>()> create);

// A class object registered in this process while it lives: CoCreateInstance in the same apartment
// gives the objects themselves, whatever the registry says.
class HostedClass {
  public:
    // For this process alone: nothing is announced to others, which may host the same class beside it.
    // Requests must allow an in-process server. Throws Error when COM refuses.
    HostedClass(const CLSID& clsid, IClassFactory& factory);
    // For a server program: other processes' requests.
    HostedClass(const CLSID& clsid, IClassFactory& factory, DWORD context, DWORD flags);
    ~HostedClass();
    HostedClass(const HostedClass&) = delete;
    HostedClass& operator=(const HostedClass&) = delete;

  private:
    DWORD cookie_ = 0;
};

// How a class is entered in the registry, below HKEY_LOCAL_MACHINE\Software\Classes.
struct ClassEntry {
    CLSID clsid;
    std::wstring description;
    // The first one also becomes the class's ProgID.
    std::vector<std::wstring> progIds;
    // Whole command line for a program, path for a DLL.
    std::wstring server;
    bool inProcess = false;
};

// Throw Error when the registry refuses. Removing what is not there is no error.
void registerClass(const ClassEntry& entry);
void unregisterClass(const ClassEntry& entry);

}  // namespace standin
