#include "standin/dao/Host.h"

#include "standin/dao/DBEngine.h"

namespace standin::dao {

const CLSID kEngineClass = {0x00000100, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};

class DefaultWorkspace : public Workspace {
  public:
    explicit DefaultWorkspace(Engine& engine)
        : Workspace(engine.server_, L"#Default Workspace#", true), engine_(engine) {
        engine_.workspace_ = this;
    }
    ~DefaultWorkspace() override { engine_.workspace_ = nullptr; }

  private:
    Engine& engine_;
};

Ref<Workspace> Engine::defaultWorkspace() {
    if (workspace_) return Ref<Workspace>(workspace_);
    return makeObject<DefaultWorkspace>(*this);
}

Ref<IClassFactory> Engine::factory() {
    return makeFactory(server_,
                       [this]() -> Ref<Object> { return makeObject<DBEngine>(server_, defaultWorkspace()); });
}

}  // namespace standin::dao
