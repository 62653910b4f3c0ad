#pragma once

#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

class MailItem final : public Item {
  public:
    MailItem(std::shared_ptr<Session> session, std::shared_ptr<ItemState> state)
        : Item(std::move(session), ObjectClass::Mail, std::move(state)) {}

  protected:
    const MemberTable& members() const override;

  private:
    Ref<Object> recipients();
    // Leaves the mail in Sent Items; every reference to the item is dead then.
    void send();
};

}  // namespace standin::outlook
