#pragma once

#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

class ContactItem final : public Item {
  public:
    ContactItem(std::shared_ptr<Session> session, std::shared_ptr<ItemState> state)
        : Item(std::move(session), ObjectClass::Contact, std::move(state)) {}

  protected:
    const MemberTable& members() const override;
    // Pictures came with version 11.
    bool offers(const Member& member) const override;

  private:
    void beforeSave() override;

    void setNamePart(const Arguments& arguments);
    std::wstring fullName() const;
    void setFullNameMember(const std::wstring& name);
    std::wstring lastNameAndFirstName() const;
    std::wstring fileAs(const Arguments& arguments);
    std::wstring subject(const Arguments& arguments);
    Date birthday() const;
    void setBirthday(Date date);
    bool hasPicture() const;
};

class DistListItem final : public Item {
  public:
    DistListItem(std::shared_ptr<Session> session, std::shared_ptr<ItemState> state)
        : Item(std::move(session), ObjectClass::DistributionList, std::move(state)) {}

  protected:
    const MemberTable& members() const override;

  private:
};

}  // namespace standin::outlook
