#include "standin/outlook/objects/Folders.h"

#include <algorithm>

#include "standin/common/Enumerator.h"
#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Items.h"
#include "standin/outlook/objects/NameSpace.h"
#include "standin/outlook/objects/Table.h"
#include "standin/outlook/objects/Windows.h"

namespace standin::outlook {
namespace {

constexpr DISPID kGetTable = 0xFB1D;

struct FolderKind {
    SpecialFolder special;
    ItemType type;
};

// What "Folders.Add(name, type)" takes, and the items that such a folder holds.
constexpr FolderKind kFolderKinds[] = {
    {SpecialFolder::Inbox, ItemType::Mail},           {SpecialFolder::Drafts, ItemType::Mail},
    {SpecialFolder::Contacts, ItemType::Contact},     {SpecialFolder::Journal, ItemType::Journal},
    {SpecialFolder::Calendar, ItemType::Appointment}, {SpecialFolder::Notes, ItemType::Note},
    {SpecialFolder::Tasks, ItemType::Task},
};

}  // namespace

bool isSpecialFolder(SpecialFolder special) {
    return std::ranges::any_of(kFolderKinds,
                               [&](const FolderKind& kind) { return kind.special == special; }) ||
           special == SpecialFolder::DeletedItems || special == SpecialFolder::Outbox ||
           special == SpecialFolder::SentMail;
}

void deleteFolder(Session& session, const FolderRecord& folder) {
    Mailbox& mailbox = session.mailbox;
    if (folder.parent == 0 || folder.special != SpecialFolder::None) throw accessDenied(session.server);
    if (mailbox.isDeleted(folder.id))
        mailbox.eraseFolder(folder.id);
    else
        mailbox.moveFolder(folder.id, mailbox.specialFolder(SpecialFolder::DeletedItems, folder.store).id);
}

const MemberTable& Folder::members() const {
    using Self = Folder;
    static const MemberTable table(L"MAPIFolder",
                                   {
                                       property<&Self::name, &Self::setName>(L"Name", 0x3001),
                                       readOnly<&Self::entryId>(L"EntryID", 0xF01E),
                                       readOnly<&Self::storeId>(L"StoreID", 0x3108),
                                       readOnly<&Self::defaultItemType>(L"DefaultItemType", 0x3106),
                                       readOnly<&Self::items>(L"Items", 0x3100),
                                       readOnly<&Self::folders>(L"Folders", 0x2103),
                                       method<&Self::getExplorer>(L"GetExplorer", 0x3101, 0, 1),
                                       method<&Self::getTable>(L"GetTable", kGetTable, 0, 2),
                                       method<&Self::display>(L"Display", 0x3104),
                                       method<&Self::remove>(L"Delete", 0xF045),
                                   },
                                   L"Name", &commonMembers());
    return table;
}

FolderRecord Folder::record() const {
    const std::optional<FolderRecord> record = mailbox().folder(folder_);
    if (!record) throw notFound(server());
    return *record;
}

Ref<Object> Folder::parent() {
    const RowId above = record().parent;
    return above == 0 ? nameSpace() : makeOf<Folder>(*this, above);
}

void Folder::setName(const std::wstring& name) {
    const FolderRecord self = record();
    if (name.empty()) throw badParameter(server());
    const std::optional<FolderRecord> sibling = mailbox().findFolder(self.parent, name);
    if (sibling && sibling->id != self.id) throw nameTaken(server());
    mailbox().renameFolder(folder_, name);
}

Ref<Object> Folder::items() {
    return makeOf<Items>(*this, record().id);
}

Ref<Object> Folder::folders() {
    return makeOf<FolderList>(*this, record().id);
}

bool Folder::offers(const Member& member) const {
    constexpr long kFirstVersionWithTables = 12;
    return member.id != kGetTable || session().version() >= kFirstVersionWithTables;
}

Ref<Object> Folder::getTable(const Arguments& arguments) {
    // What a filter would let through nobody has asked yet.
    if (arguments.has(0) && !arguments.text(0).empty()) throw badParameter(server());
    constexpr long kUserItems = 0, kHiddenItems = 1;
    const long content = arguments.number(1, kUserItems);
    if (content != kUserItems && content != kHiddenItems) throw badParameter(server());
    return makeOf<Table>(*this, record().id, content == kHiddenItems);
}

Ref<Object> Folder::getExplorer(const Arguments&) {
    auto window = std::make_shared<ExplorerWindow>();
    window->folder = record().id;
    return makeOf<Explorer>(*this, std::move(window));
}

void Folder::display() {
    auto window = std::make_shared<ExplorerWindow>();
    window->folder = record().id;
    session().show(window);
}

void Folder::remove() {
    deleteFolder(session(), record());
}

const MemberTable& FolderList::members() const {
    using Self = FolderList;
    static const MemberTable table(L"Folders",
                                   {
                                       readOnly<&Self::count>(L"Count", 0x50),
                                       method<&Self::item>(L"Item", 0x51, 1),
                                       method<&Self::add>(L"Add", 0x5F, 1, 2),
                                       readOnly<&Self::newEnum>(L"_NewEnum", DISPID_NEWENUM),
                                   },
                                   L"Item", &commonMembers());
    return table;
}

Ref<Object> FolderList::parent() {
    return parent_ == 0 ? nameSpace() : makeOf<Folder>(*this, parent_);
}

std::vector<FolderRecord> FolderList::records() const {
    if (parent_ != 0) return mailbox().subfolders(parent_);
    std::vector<FolderRecord> roots;
    for (const StoreRecord& store : mailbox().stores()) {
        if (const auto root = mailbox().folder(store.root)) roots.push_back(*root);
    }
    return roots;
}

Ref<Object> FolderList::at(long position) const {
    const std::vector<FolderRecord> all = records();
    if (position < 1 || position > static_cast<long>(all.size())) throw outOfBounds(server());
    return makeOf<Folder>(*this, all[static_cast<std::size_t>(position) - 1].id);
}

Ref<Object> FolderList::item(const Arguments& arguments) {
    if (arguments[0].vt != VT_BSTR) return at(arguments.number(0));
    const std::wstring name = arguments.text(0);
    for (const FolderRecord& record : records()) {
        if (record.name == name) return makeOf<Folder>(*this, record.id);
    }
    throw notFound(server());
}

Ref<Object> FolderList::add(const Arguments& arguments) {
    const std::wstring name = arguments.text(0);
    const std::optional<FolderRecord> above = mailbox().folder(parent_);
    if (!above) throw notSupported(server());
    ItemType type = above->type;
    if (arguments.has(1)) {
        const auto special = static_cast<SpecialFolder>(arguments.number(1));
        const auto kind = std::ranges::find(kFolderKinds, special, &FolderKind::special);
        if (kind == std::end(kFolderKinds)) throw badParameter(server());
        type = kind->type;
    }
    if (name.empty()) throw badParameter(server());
    if (mailbox().findFolder(parent_, name)) throw nameTaken(server());
    return makeOf<Folder>(*this, mailbox().addFolder(parent_, name, type).id);
}

Ref<IEnumVARIANT> FolderList::newEnum() {
    const Ref<FolderList> self(this);
    return makeEnumerator(
        server(), [self] { return self->count(); },
        [self](long position) { return toValue(self->at(position)); });
}

}  // namespace standin::outlook
