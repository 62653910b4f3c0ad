#pragma once

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// A folder window.
class Explorer final : public OutlookObject {
  public:
    Explorer(std::shared_ptr<Session> session, std::shared_ptr<ExplorerWindow> window)
        : OutlookObject(std::move(session), ObjectClass::Explorer), window_(std::move(window)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return application(); }

  private:
    Ref<Object> currentFolder();
    void setCurrentFolder(const Ref<IDispatch>& folder);
    void display() { session().show(window_); }
    void close() { session().close(*window_); }

    std::shared_ptr<ExplorerWindow> window_;
};

// An item window.
class Inspector final : public OutlookObject {
  public:
    Inspector(std::shared_ptr<Session> session, std::shared_ptr<InspectorWindow> window)
        : OutlookObject(std::move(session), ObjectClass::Inspector), window_(std::move(window)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return application(); }

  private:
    Ref<Object> currentItem();
    void display(const Arguments&) { session().show(window_); }
    void close(const Arguments& arguments);

    std::shared_ptr<InspectorWindow> window_;
};

// The open item windows.
class Inspectors final : public OutlookObject {
  public:
    explicit Inspectors(std::shared_ptr<Session> session)
        : OutlookObject(std::move(session), ObjectClass::Inspectors) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return application(); }

  private:
    long count() const { return static_cast<long>(session().inspectors().size()); }
    Ref<Object> item(const Arguments& arguments);
};

}  // namespace standin::outlook
