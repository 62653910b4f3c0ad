#include "standin/outlook/objects/Item.h"

#include "standin/outlook/objects/Attachments.h"
#include "standin/outlook/objects/ContactItem.h"
#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Folders.h"
#include "standin/outlook/objects/JournalItem.h"
#include "standin/outlook/objects/MailItem.h"
#include "standin/outlook/objects/UserProperties.h"
#include "standin/outlook/objects/Windows.h"

namespace standin::outlook {
namespace {

SpecialFolder homeOf(ItemType type) {
    if (type == ItemType::Mail) return SpecialFolder::Drafts;
    return type == ItemType::Journal ? SpecialFolder::Journal : SpecialFolder::Contacts;
}

}  // namespace

const MemberTable& Item::itemMembers() {
    using Self = Item;
    static const MemberTable table(
        L"Item",
        {
            readOnly<&Self::entryId>(L"EntryID", 0xF01E),
            readOnly<&Self::attachments>(L"Attachments", 0xF815),
            readOnly<&Self::userProperties>(L"UserProperties", 0xF816),
            readOnly<&Self::getInspector>(L"GetInspector", 0xF03E),
            property<&Self::sensitivity, &Self::setSensitivity>(L"Sensitivity", 0x36),
            property<&Self::textField, &Self::setTextField>(L"BillingInformation", 0x8535),
            property<&Self::textField, &Self::setTextField>(L"Categories", 0x9001),
            property<&Self::guardedField, &Self::setTextField>(L"Body", 0x9100),
            method<&Self::save>(L"Save", 0xF048),
            method<&Self::close>(L"Close", 0xF023, 1),
            method<&Self::display>(L"Display", 0xF0A6, 0, 1),
            method<&Self::remove>(L"Delete", 0xF04A),
        },
        nullptr, &commonMembers());
    return table;
}

Ref<Object> Item::parent() {
    const RowId folder = record().folder;
    return makeOf<Folder>(*this, folder != 0 ? folder : mailbox().specialFolder(homeOf(record().type)).id);
}

void Item::beforeCall(const Member&) {
    if (state_->gone) throw itemGone(server());
}

std::wstring Item::textField(const Arguments& arguments) {
    return record().field(arguments.member().name);
}

void Item::setTextField(const Arguments& arguments) {
    record().fields[arguments.member().name] = toText(arguments.assigned());
    touch();
}

std::wstring Item::guardedField(const Arguments& arguments) {
    session().guardAddresses();
    return textField(arguments);
}

long Item::sensitivity() const {
    const std::wstring text = record().field(L"Sensitivity");
    return text.empty() ? 0 : std::stol(text);
}

void Item::setSensitivity(long value) {
    if (value < 0 || value > 3) throw badParameter(server());
    record().fields[L"Sensitivity"] = std::to_wstring(value);
    touch();
}

Ref<Object> Item::attachments() {
    return makeOf<Attachments>(*this, Ref<Item>(this));
}

Ref<Object> Item::userProperties() {
    return makeOf<UserProperties>(*this, Ref<Item>(this));
}

Ref<Object> Item::getInspector() {
    return makeOf<Inspector>(*this, session().inspectorOf(state_));
}

void Item::display(const Arguments&) {
    session().show(session().inspectorOf(state_));
}

void Item::close(const Arguments& arguments) {
    closeItem(session(), state_, static_cast<CloseMode>(arguments.number(0)));
}

void Item::save() {
    beforeSave();
    saveItem(session(), *state_);
}

void Item::remove() {
    deleteItem(session(), *state_);
}

Ref<Object> wrapItem(const std::shared_ptr<Session>& session, std::shared_ptr<ItemState> state) {
    switch (state->record.type) {
        case ItemType::Contact:
            return makeObject<ContactItem>(session, std::move(state));
        case ItemType::Journal:
            return makeObject<JournalItem>(session, std::move(state));
        case ItemType::Mail:
            return makeObject<MailItem>(session, std::move(state));
        case ItemType::DistributionList:
            return makeObject<DistListItem>(session, std::move(state));
        default:
            throw notSupported(session->server);
    }
}

Ref<Object> openItem(const std::shared_ptr<Session>& session, RowId item) {
    return wrapItem(session, session->open(item));
}

Ref<Object> newItem(const std::shared_ptr<Session>& session, ItemType type, RowId folder) {
    auto state = std::make_shared<ItemState>();
    state->record.type = type;
    state->record.folder = folder;
    return wrapItem(session, std::move(state));
}

void saveItem(Session& session, ItemState& state) {
    ItemRecord& record = state.record;
    if (record.folder == 0) record.folder = session.mailbox.specialFolder(homeOf(record.type)).id;
    if (!session.mailbox.folder(record.folder) || !session.mailbox.save(record))
        throw notFound(session.server);
    state.changed = false;
}

void deleteItem(Session& session, ItemState& state) {
    Mailbox& mailbox = session.mailbox;
    const ItemRecord& record = state.record;
    if (record.id != 0) {
        const std::optional<ItemRecord> saved = mailbox.item(record.id);
        if (!saved) throw notFound(session.server);
        const RowId store = mailbox.folder(saved->folder)->store;
        if (mailbox.isDeleted(saved->folder))
            mailbox.eraseItem(record.id);
        else
            mailbox.moveItem(record.id, mailbox.specialFolder(SpecialFolder::DeletedItems, store).id);
    }
    state.gone = true;
    session.closeWindowsOf(state);
}

void closeItem(Session& session, const std::shared_ptr<ItemState>& state, CloseMode mode) {
    if (mode < CloseMode::Save || mode > CloseMode::PromptForSave) throw badParameter(session.server);
    const std::wstring answer = session.server.option(L"ClosePrompt");
    const bool asked = mode == CloseMode::PromptForSave && state->changed;
    if (asked && answer == L"cancel") return;
    if (mode == CloseMode::Save || (asked && answer == L"yes")) {
        saveItem(session, *state);
    } else if (state->changed && state->record.id != 0) {
        if (std::optional<ItemRecord> saved = session.mailbox.item(state->record.id))
            state->record = std::move(*saved);
        state->changed = false;
    }
    session.closeWindowsOf(*state);
}

}  // namespace standin::outlook
