#pragma once

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// MAPIFolder.
class Folder final : public OutlookObject {
  public:
    Folder(std::shared_ptr<Session> session, RowId folder)
        : OutlookObject(std::move(session), ObjectClass::Folder), folder_(folder) {}

    RowId row() const noexcept { return folder_; }

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;
    bool offers(const Member& member) const override;

  private:
    // Throws when the folder has been deleted meanwhile.
    FolderRecord record() const;
    std::wstring name() const { return record().name; }
    void setName(const std::wstring& name);
    std::wstring entryId() const { return mailbox().entryId(record()); }
    std::wstring storeId() const { return mailbox().storeId(record().store); }
    long defaultItemType() const { return static_cast<long>(record().type); }
    Ref<Object> items();
    Ref<Object> folders();
    Ref<Object> getExplorer(const Arguments& arguments);
    Ref<Object> getTable(const Arguments& arguments);
    void display();
    void remove();

    RowId folder_;
};

// Folders: the stores' root folders (parent 0), or the folders in a folder.
class FolderList final : public OutlookObject {
  public:
    FolderList(std::shared_ptr<Session> session, RowId parent)
        : OutlookObject(std::move(session), ObjectClass::Folders), parent_(parent) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;

  private:
    std::vector<FolderRecord> records() const;
    Ref<Object> at(long position) const;
    long count() const { return static_cast<long>(records().size()); }
    Ref<Object> item(const Arguments& arguments);
    Ref<Object> add(const Arguments& arguments);
    Ref<IEnumVARIANT> newEnum();

    RowId parent_;
};

bool isSpecialFolder(SpecialFolder special);

// Deletes as Outlook does: into Deleted Items, or for good when it lies there already.
void deleteFolder(Session& session, const FolderRecord& folder);

}  // namespace standin::outlook
