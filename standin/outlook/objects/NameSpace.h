#pragma once

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// The MAPI name space: the stores, and the way from an identifier to its folder or item.
class NameSpace final : public OutlookObject {
  public:
    explicit NameSpace(std::shared_ptr<Session> session)
        : OutlookObject(std::move(session), ObjectClass::NameSpace) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return application(); }

  private:
    std::wstring type() const { return L"MAPI"; }
    Ref<Object> folders();
    Ref<Object> getDefaultFolder(const Arguments& arguments);
    Ref<Object> getFolderFromId(const Arguments& arguments);
    Ref<Object> getItemFromId(const Arguments& arguments);

    // The row that the arguments "EntryID, [StoreID]" name; throws as Outlook does when they cannot name one.
    // Whether an item is still there shows when it is opened.
    RowId resolve(const Arguments& arguments, EntryKind kind);
    StoreRecord storeOf(const Arguments& arguments);
};

}  // namespace standin::outlook
