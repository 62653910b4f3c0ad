#include "standin/dao/TableDefs.h"

#include "standin/dao/Fields.h"

namespace standin::dao {

const MemberTable& TableDef::members() const {
    static const MemberTable table(L"TableDef",
                                   {
                                       daoReadOnly<&TableDef::fields>(L"Fields", 0),
                                       daoReadOnly<&TableDef::name>(L"Name", 1610809347),
                                       daoReadOnly<&TableDef::recordCount>(L"RecordCount", 1610809354),
                                   },
                                   L"Fields");
    return table;
}

Ref<IDispatch> TableDef::fields() {
    return makeObject<TableFields>(server(), table_);
}

long TableDef::recordCount() {
    Statement count = database_->file().connection().prepare(L"SELECT count(*) FROM " + quoted(table_.name));
    count.step();
    return static_cast<long>(count.integer(0));
}

const MemberTable& TableDefs::members() const {
    static const MemberTable table(L"TableDefs", rows(), L"Item");
    return table;
}

Ref<IDispatch> TableDefs::element(long index) {
    return makeObject<TableDef>(server(), database_, tables()[static_cast<std::size_t>(index)]);
}

}  // namespace standin::dao
