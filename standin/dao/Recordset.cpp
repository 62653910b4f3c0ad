#include "standin/dao/Recordset.h"

#include <algorithm>

#include "standin/dao/Database.h"
#include "standin/dao/Fields.h"

namespace standin::dao {

Recordset::Recordset(Server& server, Ref<Database> database, std::unique_ptr<Cursor> cursor)
    : DaoObject(server), database_(std::move(database)), cursor_(std::move(cursor)) {
    database_->add(*this);
}

Recordset::~Recordset() {
    // The statements go before the connection that the database may close now.
    release();
    database_->remove(*this);
}

const MemberTable& Recordset::members() const {
    static const MemberTable table(L"Recordset",
                                   {
                                       daoReadOnly<&Recordset::fields>(L"Fields", 0),
                                       daoReadOnly<&Recordset::bof>(L"BOF", 101),
                                       daoReadOnly<&Recordset::eof>(L"EOF", 105),
                                       daoReadOnly<&Recordset::recordCount>(L"RecordCount", 116),
                                       daoMethod<&Recordset::addNew>(L"AddNew", 132),
                                       daoMethod<&Recordset::getRows>(L"GetRows", 154, 0, 1),
                                       daoMethod<&Recordset::close>(L"Close", 133),
                                       daoMethod<&Recordset::remove>(L"Delete", 135),
                                       daoMethod<&Recordset::moveFirst>(L"MoveFirst", 141),
                                       daoMethod<&Recordset::moveNext>(L"MoveNext", 143),
                                       daoMethod<&Recordset::movePrevious>(L"MovePrevious", 144),
                                       daoMethod<&Recordset::update>(L"Update", 168, 0, 2),
                                       daoMethod<&Recordset::moveLast>(L"MoveLast", 169, 0, 1),
                                   },
                                   L"Fields");
    return table;
}

Ref<IDispatch> Recordset::fields() {
    return makeObject<Fields>(server(), Ref<Recordset>(this));
}

void Recordset::refuseIfForwardOnly() const {
    if (cursor_->kind() == CursorKind::forwardOnly) raise(3219);
}

void Recordset::moveFirst() {
    refuseIfForwardOnly();
    cursor_->moveFirst();
}

void Recordset::moveLast() {
    refuseIfForwardOnly();
    cursor_->moveLast();
}

void Recordset::movePrevious() {
    refuseIfForwardOnly();
    cursor_->movePrevious();
}

Value Recordset::getRows(const Arguments& arguments) {
    const long most = arguments.number(0, 1);
    if (most < 1) raise(3001);
    if (cursor_->isAfterLast()) raise(3021);
    const Reading together = cursor_->readTogether();
    std::vector<Value> cells;
    const std::vector<ResultField>& fields = cursor_->fields();
    cells.reserve(fields.size() * std::min(static_cast<std::size_t>(most), cursor_->rowsAhead()));
    for (long row = 0; row < most && !cursor_->isAfterLast(); ++row) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            cells.push_back(toClient(cursor_->value(i), fields[i].column.type));
        cursor_->moveNext();
    }
    return gridOf(fields.size(), std::move(cells));
}

}  // namespace standin::dao
