#include "standin/outlook/objects/MailItem.h"

#include <algorithm>

#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Recipients.h"

namespace standin::outlook {

const MemberTable& MailItem::members() const {
    using Self = MailItem;
    static const MemberTable table(L"MailItem",
                                   {
                                       property<&Self::textField, &Self::setTextField>(L"Subject", 0x37),
                                       readOnly<&Self::recipients>(L"Recipients", 0xF814),
                                       method<&Self::send>(L"Send", 0xF075),
                                   },
                                   L"Subject", &itemMembers());
    return table;
}

Ref<Object> MailItem::recipients() {
    session().guardAddresses();
    return makeOf<Recipients>(*this, Ref<Item>(this));
}

void MailItem::send() {
    session().guardAddresses();
    const auto& all = record().recipients;
    const auto known = [this](const Recipient& recipient) { return isResolvable(mailbox(), recipient.name); };
    if (all.empty() || !std::ranges::all_of(all, known)) throw unknownRecipients(server());
    const RowId destination = mailbox().specialFolder(SpecialFolder::SentMail).id;
    if (record().id == 0) record().folder = destination;
    saveItem(session(), *state());
    mailbox().moveItem(record().id, destination);
    state()->gone = true;
    session().closeWindowsOf(*state());
}

}  // namespace standin::outlook
