#pragma once

#include "standin/common/ClassFactory.h"
#include "standin/dao/Workspace.h"

namespace standin::dao {

extern const CLSID kEngineClass;
inline constexpr const wchar_t* kEngineProgId = L"DAO.DBEngine.36";

/// One engine with its default workspace, for whoever serves it to clients. Outlives its objects.
class Engine {
  public:
    Server& server() { return server_; }
    /// Makes DBEngine objects.
    Ref<IClassFactory> factory();

  private:
    Ref<Workspace> defaultWorkspace();

    Server server_{L"DAO.DbEngine"};
    // Not owned: it lives as long as a client holds an engine, a database or itself.
    class DefaultWorkspace* workspace_ = nullptr;
    friend class DefaultWorkspace;
};

/// Serves the class DAO.DBEngine.36 inside this process while it lives: CoCreateInstance on the same thread
/// finds it without any registration.
class Host {
  public:
    Server& server() { return engine_.server(); }

  private:
    Engine engine_;
    HostedClass class_{kEngineClass, *engine_.factory().Get()};
};

}  // namespace standin::dao
