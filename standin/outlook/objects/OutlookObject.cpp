#include "standin/outlook/objects/OutlookObject.h"

#include "standin/outlook/objects/Application.h"
#include "standin/outlook/objects/NameSpace.h"

namespace standin::outlook {

OutlookObject::OutlookObject(std::shared_ptr<Session> session, ObjectClass kind, Accounting accounting)
    : Object(session->server, accounting), session_(std::move(session)), kind_(kind) {}

const MemberTable& OutlookObject::commonMembers() {
    using Self = OutlookObject;
    static const MemberTable table(L"Object", {
                                                  readOnly<&Self::application>(L"Application", 0xF000),
                                                  readOnly<&Self::objectClass>(L"Class", 0xF00A),
                                                  readOnly<&Self::parentMember>(L"Parent", 0xF001),
                                              });
    return table;
}

Ref<Object> OutlookObject::application() {
    return Application::shared(session_);
}

Ref<Object> OutlookObject::nameSpace() {
    return makeOf<NameSpace>(*this);
}

}  // namespace standin::outlook
