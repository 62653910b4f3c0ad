#include "standin/dao/Recordset.h"

#include "standin/dao/Database.h"
#include "standin/dao/Fields.h"
#include "standin/dao/Text.h"

namespace standin::dao {

Recordset::Recordset(Server& server, Ref<Database> database, std::wstring source,
                     std::unique_ptr<Cursor> cursor)
    : DaoObject(server),
      database_(std::move(database)),
      source_(std::move(source)),
      cursor_(std::move(cursor)) {
    database_->add(*this);
}

Recordset::~Recordset() {
    // The statements go before the connection that the database may close now.
    release();
    database_->remove(*this);
}

const MemberTable& Recordset::members() const {
    static const MemberTable table(
        L"Recordset",
        {
            daoReadOnly<&Recordset::fields>(L"Fields", 0),
            daoReadOnly<&Recordset::bof>(L"BOF", 101),
            daoReadOnly<&Recordset::eof>(L"EOF", 105),
            daoReadOnly<&Recordset::name>(L"Name", 111),
            daoReadOnly<&Recordset::noMatch>(L"NoMatch", 112),
            daoReadOnly<&Recordset::recordCount>(L"RecordCount", 116),
            daoReadOnly<&Recordset::type>(L"Type", 120),
            daoReadOnly<&Recordset::updatable>(L"Updatable", 121),
            daoMethod<&Recordset::addNew>(L"AddNew", 132),
            daoMethod<&Recordset::close>(L"Close", 133),
            daoMethod<&Recordset::remove>(L"Delete", 135),
            daoMethod<&Recordset::edit>(L"Edit", 136),
            daoMethod<&Recordset::moveFirst>(L"MoveFirst", 141),
            daoMethod<&Recordset::moveNext>(L"MoveNext", 143),
            daoMethod<&Recordset::movePrevious>(L"MovePrevious", 144),
            daoMethod<&Recordset::update>(L"Update", 168, 0, 2),
            daoMethod<&Recordset::moveLast>(L"MoveLast", 169, 0, 1),
            daoMethod<&Recordset::cancelUpdate>(L"CancelUpdate", 170, 0, 1),
            daoProperty<&Recordset::collect, &Recordset::setCollect>(L"Collect", DISPID_COLLECT, 1, 1),
        },
        L"Fields");
    return table;
}

Ref<IDispatch> Recordset::fields() {
    return makeObject<Fields>(server(), Ref<Recordset>(this));
}

std::size_t Recordset::fieldIndex(const Arguments& arguments) const {
    const std::vector<ResultField>& all = cursor_->fields();
    if (arguments[0].vt != VT_BSTR) {
        const long index = arguments.number(0);
        if (index < 0 || static_cast<std::size_t>(index) >= all.size()) raise(3265);
        return static_cast<std::size_t>(index);
    }
    const std::wstring name = arguments.text(0);
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (sameText(all[index].name, name)) return index;
    }
    raise(3265);
}

Value Recordset::collect(const Arguments& arguments) {
    const std::size_t index = fieldIndex(arguments);
    return toClient(cursor_->value(index), cursor_->fields()[index].column.type);
}

void Recordset::setCollect(const Arguments& arguments) {
    const std::size_t index = fieldIndex(arguments);
    cursor_->setValue(index, fromClient(arguments.assigned(), cursor_->fields()[index].column.type));
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

}  // namespace standin::dao
