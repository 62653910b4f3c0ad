#pragma once

#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

// OlUserPropertyType, as far as values of them can be kept.
enum class UserPropertyType : long {
    Text = 1,
    Number = 3,
    Date = 5,
    YesNo = 6,
    Keywords = 11,
    Currency = 14,
    Percent = 12,
    Duration = 7,
    Integer = 20
};

// A field's value as Outlook gives it.
Value userPropertyValue(const UserProperty& field);

class UserProperties final : public OutlookObject {
  public:
    UserProperties(std::shared_ptr<Session> session, Ref<Item> item)
        : OutlookObject(std::move(session), ObjectClass::UserProperties), item_(std::move(item)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return Ref<Object>(item_.Get()); }

  private:
    long count() const { return static_cast<long>(item_->record().userProperties.size()); }
    // By position, or by name: a missing name is Nothing, not an error.
    Ref<Object> item(const Arguments& arguments);
    Ref<Object> find(const Arguments& arguments);
    Ref<Object> add(const Arguments& arguments);
    void remove(const Arguments& arguments);
    Ref<Object> named(const std::wstring& name);

    Ref<Item> item_;
};

class UserPropertyObject final : public OutlookObject {
  public:
    UserPropertyObject(std::shared_ptr<Session> session, Ref<Item> item, std::wstring name)
        : OutlookObject(std::move(session), ObjectClass::UserProperty),
          item_(std::move(item)),
          name_(std::move(name)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;

  private:
    UserProperty& entry() const;
    Value value() const { return userPropertyValue(entry()); }
    void setValue(const Value& value);
    std::wstring name() const { return entry().name; }
    long type() const { return entry().type; }
    void remove();

    Ref<Item> item_;
    std::wstring name_;
};

}  // namespace standin::outlook
