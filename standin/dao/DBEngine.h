#pragma once

#include "standin/common/ControlObject.h"
#include "standin/dao/Workspace.h"

namespace standin::dao {

/// The root of the object model. All engines of a session share its default workspace.
class DBEngine : public DaoObject {
  public:
    DBEngine(Server& server, Ref<Workspace> defaultWorkspace)
        : DaoObject(server), workspace_(std::move(defaultWorkspace)) {}

  protected:
    const MemberTable& members() const override;

  private:
    std::wstring version() const { return L"3.6"; }
    Ref<IDispatch> workspaces();
    Ref<IDispatch> createWorkspace(const Arguments& arguments);
    Ref<IDispatch> openDatabase(const Arguments& arguments) { return workspace_->openDatabase(arguments); }
    Ref<IDispatch> createDatabase(const Arguments& arguments) {
        return workspace_->createDatabase(arguments);
    }
    void setOption(const Arguments& arguments);
    void beginTrans() { workspace_->beginTrans(); }
    void commitTrans() { workspace_->commitTrans(); }
    void rollback() { workspace_->rollback(); }
    Ref<ControlObject> standIn() { return makeObject<ControlObject>(server()); }

    Ref<Workspace> workspace_;
};

/// The workspaces that belong to the session; one made by CreateWorkspace does not until it is appended.
class Workspaces : public Collection {
  public:
    Workspaces(Server& server, Ref<Workspace> workspace)
        : Collection(server), workspace_(std::move(workspace)) {}

  protected:
    const MemberTable& members() const override;
    long size() override { return 1; }
    std::wstring nameOf(long) override { return workspace_->name(); }
    Ref<IDispatch> element(long) override { return workspace_; }

  private:
    Ref<Workspace> workspace_;
};

}  // namespace standin::dao
