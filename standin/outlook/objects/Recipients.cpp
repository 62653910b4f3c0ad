#include "standin/outlook/objects/Recipients.h"

#include <algorithm>

#include "standin/outlook/objects/Errors.h"

namespace standin::outlook {

bool isResolvable(Mailbox& mailbox, const std::wstring& name) {
    const std::size_t at = name.find(L'@');
    if (at != std::wstring::npos) return at > 0 && at + 1 < name.size();
    Query query(
        mailbox.database(),
        "SELECT 1 FROM fields WHERE name IN ('FullName', 'FileAs', 'DLName') AND value = ? COLLATE NOCASE");
    return query.bind(name).next();
}

const MemberTable& Recipients::members() const {
    using Self = Recipients;
    static const MemberTable table(L"Recipients",
                                   {
                                       readOnly<&Self::count>(L"Count", 0x50),
                                       method<&Self::item>(L"Item", 0x51, 1),
                                       method<&Self::add>(L"Add", 0x6F, 1),
                                   },
                                   L"Item", &commonMembers());
    return table;
}

std::size_t Recipients::indexFrom(const Arguments& arguments) const {
    const long position = arguments.number(0);
    if (position < 1 || position > count()) throw outOfBounds(server());
    return static_cast<std::size_t>(position) - 1;
}

Ref<Object> Recipients::item(const Arguments& arguments) {
    return makeOf<RecipientObject>(*this, mail_, indexFrom(arguments));
}

Ref<Object> Recipients::add(const Arguments& arguments) {
    const std::wstring name = arguments.text(0);
    if (name.empty()) throw badParameter(server());
    auto& entries = mail_->record().recipients;
    entries.push_back({name, 1});
    mail_->touch();
    return makeOf<RecipientObject>(*this, mail_, entries.size() - 1);
}

const MemberTable& RecipientObject::members() const {
    using Self = RecipientObject;
    // Parent has a number of its own here, so the common members are not inherited.
    static const MemberTable table(L"Recipient",
                                   {
                                       readOnly<&Self::application>(L"Application", 0xF000),
                                       readOnly<&Self::objectClass>(L"Class", 0xF00A),
                                       readOnly<&Self::parentMember>(L"Parent", 0x6D),
                                       readOnly<&Self::name>(L"Name", 0x3001),
                                       readOnly<&Self::name>(L"Address", 0x3003),
                                       property<&Self::type, &Self::setType>(L"Type", 0xC15),
                                   },
                                   L"Name");
    return table;
}

Ref<Object> RecipientObject::parent() {
    return makeOf<Recipients>(*this, mail_);
}

Recipient& RecipientObject::entry() const {
    auto& entries = mail_->record().recipients;
    if (index_ >= entries.size()) throw itemGone(server());
    return entries[index_];
}

void RecipientObject::setType(long type) {
    if (type < 0 || type > 3) throw badParameter(server());
    entry().type = type;
    mail_->touch();
}

}  // namespace standin::outlook
