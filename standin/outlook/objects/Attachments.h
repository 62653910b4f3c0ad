#pragma once

#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

// A whole file; throws Outlook's error when it cannot be read.
Bytes readFile(Server& server, const std::wstring& path);

class Attachments final : public OutlookObject {
  public:
    Attachments(std::shared_ptr<Session> session, Ref<Item> item)
        : OutlookObject(std::move(session), ObjectClass::Attachments), item_(std::move(item)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return Ref<Object>(item_.Get()); }

  private:
    long count() const { return static_cast<long>(item_->record().attachments.size()); }
    Ref<Object> at(long position);
    Ref<Object> item(const Arguments& arguments) { return at(arguments.number(0)); }
    // Source path, then type, position and display name, all three optional.
    Ref<Object> add(const Arguments& arguments);
    void remove(const Arguments& arguments);
    Ref<IEnumVARIANT> newEnum();

    Ref<Item> item_;
};

class AttachmentObject final : public OutlookObject {
  public:
    AttachmentObject(std::shared_ptr<Session> session, Ref<Item> item, std::size_t index)
        : OutlookObject(std::move(session), ObjectClass::Attachment), item_(std::move(item)), index_(index) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;

  private:
    Attachment& entry() const;
    std::wstring displayName() const { return entry().displayName; }
    void setDisplayName(const std::wstring& name);
    std::wstring fileName() const { return entry().fileName; }
    long type() const { return 1; }
    long index() const { return static_cast<long>(index_) + 1; }
    // Overwrites.
    void saveAsFile(const Arguments& arguments);
    void remove();

    Ref<Item> item_;
    std::size_t index_;
};

}  // namespace standin::outlook
