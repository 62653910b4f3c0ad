#pragma once

#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

// Whether a name is an address, or names a saved contact.
bool isResolvable(Mailbox& mailbox, const std::wstring& name);

// The recipients of a mail. All their members are guarded.
class Recipients final : public OutlookObject {
  public:
    Recipients(std::shared_ptr<Session> session, Ref<Item> mail)
        : OutlookObject(std::move(session), ObjectClass::Recipients), mail_(std::move(mail)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return Ref<Object>(mail_.Get()); }
    void beforeCall(const Member&) override { session().guardAddresses(); }

  private:
    long count() const { return static_cast<long>(mail_->record().recipients.size()); }
    Ref<Object> item(const Arguments& arguments);
    Ref<Object> add(const Arguments& arguments);
    // 0-based; throws when the argument is out of range.
    std::size_t indexFrom(const Arguments& arguments) const;

    Ref<Item> mail_;
};

class RecipientObject final : public OutlookObject {
  public:
    RecipientObject(std::shared_ptr<Session> session, Ref<Item> mail, std::size_t index)
        : OutlookObject(std::move(session), ObjectClass::Recipient), mail_(std::move(mail)), index_(index) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;
    void beforeCall(const Member&) override { session().guardAddresses(); }

  private:
    Recipient& entry() const;
    std::wstring name() const { return entry().name; }
    long type() const { return entry().type; }
    void setType(long type);

    Ref<Item> mail_;
    std::size_t index_;
};

}  // namespace standin::outlook
