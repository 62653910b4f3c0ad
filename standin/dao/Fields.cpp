#include "standin/dao/Fields.h"

namespace standin::dao {

Field::Field(Server& server, Ref<Recordset> recordset, std::size_t index)
    : DaoObject(server), recordset_(std::move(recordset)), index_(index) {
    const ResultField& field = recordset_->cursor().fields()[index];
    name_ = field.name;
    column_ = field.column;
}

const MemberTable& Field::members() const {
    static const MemberTable table(L"Field",
                                   {
                                       daoProperty<&Field::value, &Field::setValue>(L"Value", 0),
                                       daoReadOnly<&Field::name>(L"Name", 1610809347),
                                   },
                                   L"Value");
    return table;
}

Value Field::value() const {
    return toClient(recordset_->cursor().value(index_), column_.type);
}

void Field::setValue(const Value& value) {
    recordset_->cursor().setValue(index_, fromClient(value, column_.type));
}

const MemberTable& Fields::members() const {
    static const MemberTable table(L"Fields", rows(), L"Item");
    return table;
}

std::wstring Fields::nameOf(long index) {
    return recordset_->cursor().fields()[static_cast<std::size_t>(index)].name;
}

Ref<IDispatch> Fields::element(long index) {
    return makeObject<Field>(server(), recordset_, static_cast<std::size_t>(index));
}

}  // namespace standin::dao
