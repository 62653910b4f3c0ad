#pragma once

#include "standin/common/ControlObject.h"
#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// The root of the object model.
class Application final : public OutlookObject {
  public:
    // How the running object table holds one: its calls count, but it is no object that a client holds.
    enum class Role { Client, RunningTable };
    explicit Application(std::shared_ptr<Session> session, Role role = Role::Client);
    ~Application() override;

    // The one that clients share, made anew when none holds it.
    static Ref<Object> shared(const std::shared_ptr<Session>& session);

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return Ref<Object>(this); }

  private:
    std::wstring name() const { return L"Outlook"; }
    std::wstring version() const;
    Ref<Object> activeExplorer();
    Ref<Object> activeInspector();
    Ref<Object> getNamespace(const Arguments& arguments);
    Ref<Object> createItem(const Arguments& arguments);
    Ref<Object> inspectors();
    void quit() { server().quit(); }
    Ref<ControlObject> standIn() { return makeObject<ControlObject>(server()); }
};

}  // namespace standin::outlook
