#pragma once

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// The items of a folder.
class Items final : public OutlookObject {
  public:
    Items(std::shared_ptr<Session> session, RowId folder)
        : OutlookObject(std::move(session), ObjectClass::Items), folder_(folder) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;

  private:
    // The rows in order, read again whenever the mailbox has changed.
    const std::vector<RowId>& rows();
    Ref<Object> at(long position);
    long count() { return static_cast<long>(rows().size()); }
    Ref<Object> item(const Arguments& arguments);
    Ref<Object> add(const Arguments& arguments);
    Ref<IEnumVARIANT> newEnum();

    RowId folder_;
    std::vector<RowId> rows_;
    long version_ = -1;
};

}  // namespace standin::outlook
