#pragma once

#include "standin/dao/Collection.h"
#include "standin/dao/Database.h"

namespace standin::dao {

/// The definition of one table, as it was when it was asked for.
class TableDef : public DaoObject {
  public:
    TableDef(Server& server, Ref<Database> database, Table table)
        : DaoObject(server), database_(std::move(database)), table_(std::move(table)) {}

  protected:
    bool isOpen() const override { return database_->isOpen(); }
    const MemberTable& members() const override;

  private:
    const std::wstring& name() const { return table_.name; }
    Ref<IDispatch> fields();
    long recordCount();

    Ref<Database> database_;
    Table table_;
};

class TableDefs : public Collection {
  public:
    TableDefs(Server& server, Ref<Database> database) : Collection(server), database_(std::move(database)) {}

  protected:
    bool isOpen() const override { return database_->isOpen(); }
    const MemberTable& members() const override;
    long size() override { return static_cast<long>(tables().size()); }
    std::wstring nameOf(long index) override { return tables()[static_cast<std::size_t>(index)].name; }
    Ref<IDispatch> element(long index) override;

  private:
    const std::vector<Table>& tables() { return database_->file().schema().tables; }

    Ref<Database> database_;
};

}  // namespace standin::dao
