#include "standin/outlook/objects/Table.h"

#include <algorithm>

#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Folders.h"
#include "standin/outlook/objects/TableColumns.h"

namespace standin::outlook {

Table::Table(std::shared_ptr<Session> session, RowId folder, bool hidden)
    : OutlookObject(std::move(session), ObjectClass::Table), state_(std::make_shared<TableState>()) {
    const std::optional<FolderRecord> record = mailbox().folder(folder);
    if (!record) throw notFound(server());
    state_->folder = folder;
    state_->hidden = hidden;
    // Hidden items come with a mail folder's columns whatever the folder holds.
    state_->columns = defaultColumns(hidden ? ItemType::Mail : record->type);
}

const MemberTable& Table::members() const {
    using Self = Table;
    static const MemberTable table(L"Table",
                                   {
                                       readOnly<&Self::columns>(L"Columns", 0xFB93),
                                       readOnly<&Self::endOfTable>(L"EndOfTable", 0xFB1F),
                                       method<&Self::rowCount>(L"GetRowCount", 0x50),
                                       method<&Self::getArray>(L"GetArray", 0xFBCF, 1),
                                       method<&Self::moveToStart>(L"MoveToStart", 0xFB1E),
                                   },
                                   nullptr, &commonMembers());
    return table;
}

Ref<Object> Table::parent() {
    return makeOf<Folder>(*this, state_->folder);
}

const std::vector<RowId>& Table::rows() {
    const long now = mailbox().version();
    if (now != version_ && !state_->hidden) rows_ = mailbox().items(state_->folder);
    version_ = now;
    return rows_;
}

Ref<Object> Table::columns() {
    return makeOf<Columns>(*this, state_);
}

Value Table::getArray(const Arguments& arguments) {
    const long most = arguments.number(0);
    if (most < 1) throw badParameter(server());
    const Reading together(mailbox().database());
    const std::vector<RowId>& all = rows();
    const std::size_t begin = std::min(state_->next, all.size());
    const std::size_t count = std::min(static_cast<std::size_t>(most), all.size() - begin);
    std::vector<Value> cells;
    cells.reserve(count * state_->columns.size());
    // Identifiers alone are told without reading the items.
    const bool isRead = std::ranges::any_of(state_->columns, showsContent);
    for (std::size_t row = begin; row < begin + count; ++row) {
        std::optional<ItemRecord> item = isRead ? mailbox().item(all[row]) : ItemRecord();
        if (!isRead) {
            item->id = all[row];
            item->folder = state_->folder;
        }
        for (const std::wstring& column : state_->columns)
            cells.push_back(item ? cellOf(*this, *item, column) : Value());
    }
    state_->next = begin + count;
    return gridOf(state_->columns.size(), std::move(cells));
}

const MemberTable& Columns::members() const {
    using Self = Columns;
    static const MemberTable table(L"Columns",
                                   {
                                       readOnly<&Self::count>(L"Count", 0x50),
                                       method<&Self::item>(L"Item", 0x51, 1),
                                       method<&Self::add>(L"Add", 0x5F, 1),
                                       method<&Self::removeAll>(L"RemoveAll", 0x53),
                                   },
                                   L"Item", &commonMembers());
    return table;
}

Ref<Object> Columns::parent() {
    return makeOf<Folder>(*this, state_->folder);
}

Ref<Object> Columns::item(const Arguments& arguments) {
    if (arguments[0].vt == VT_BSTR) {
        const std::wstring name = arguments.text(0);
        const bool known = std::ranges::find(state_->columns, name) != state_->columns.end();
        return known ? makeOf<Column>(*this, state_, name) : Ref<Object>();
    }
    const long position = arguments.number(0);
    if (position < 1 || position > count()) throw outOfBounds(server());
    return makeOf<Column>(*this, state_, state_->columns[static_cast<std::size_t>(position) - 1]);
}

Ref<Object> Columns::add(const Arguments& arguments) {
    session().guardAddresses();
    const std::wstring name = arguments.text(0);
    if (!isColumn(name))
        throw outlookError(server(), E_INVALIDARG,
                           L"The property \"" + name + L"\" is not supported for this operation.");
    state_->columns.push_back(name);
    state_->next = 0;
    return makeOf<Column>(*this, state_, name);
}

void Columns::removeAll() {
    state_->columns.clear();
    state_->next = 0;
}

const MemberTable& Column::members() const {
    using Self = Column;
    static const MemberTable table(L"Column", {readOnly<&Self::name>(L"Name", 0x2102)}, L"Name",
                                   &commonMembers());
    return table;
}

}  // namespace standin::outlook
