#pragma once

#include "standin/outlook/objects/Session.h"

namespace standin::outlook {

// The numbers are Outlook's own (OlObjectClass).
enum class ObjectClass : long {
    Application = 0,
    NameSpace = 1,
    Folder = 2,
    Recipient = 4,
    Attachment = 5,
    Folders = 15,
    Items = 16,
    Recipients = 17,
    Attachments = 18,
    Explorer = 34,
    Inspector = 35,
    UserProperties = 38,
    UserProperty = 39,
    Contact = 40,
    Journal = 42,
    Mail = 43,
    Inspectors = 61,
    DistributionList = 69,
    Table = 120,
    Columns = 150,
    Column = 154
};

// What every object of the model has: Application, Class, Parent.
class OutlookObject : public Object {
  public:
    Session& session() const noexcept { return *session_; }
    const std::shared_ptr<Session>& sharedSession() const noexcept { return session_; }
    Mailbox& mailbox() const noexcept { return session_->mailbox; }

  protected:
    OutlookObject(std::shared_ptr<Session> session, ObjectClass kind,
                  Accounting accounting = Accounting::Counted);

    virtual Ref<Object> parent() = 0;
    static const MemberTable& commonMembers();
    // For the few classes whose Parent has a number of its own.
    Ref<Object> application();
    long objectClass() const { return static_cast<long>(kind_); }
    Ref<Object> nameSpace();
    Ref<Object> parentMember() { return parent(); }

  private:
    std::shared_ptr<Session> session_;
    ObjectClass kind_;
};

// Makes an object of the model that shares the maker's session.
template <class T, class... Arguments>
Ref<Object> makeOf(const OutlookObject& maker, Arguments&&... arguments) {
    return makeObject<T>(maker.sharedSession(), std::forward<Arguments>(arguments)...);
}

}  // namespace standin::outlook
