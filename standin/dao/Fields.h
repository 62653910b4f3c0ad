#pragma once

#include "standin/dao/Collection.h"
#include "standin/dao/Recordset.h"

namespace standin::dao {

/// A field of a recordset's rows, or of a table's definition, which has no value.
class Field : public DaoObject {
  public:
    Field(Server& server, Ref<Recordset> recordset, std::size_t index);
    Field(Server& server, Column column)
        : DaoObject(server), name_(column.name), column_(std::move(column)) {}

  protected:
    bool isOpen() const override { return !recordset_ || recordset_->isOpen(); }
    const MemberTable& members() const override;

  private:
    Value value() const;
    void setValue(const Value& value);
    const std::wstring& name() const { return name_; }
    Value type() const { return Value(static_cast<short>(column_.type)); }
    long size() const { return column_.size; }

    Ref<Recordset> recordset_;
    std::size_t index_ = 0;
    std::wstring name_;
    Column column_;
};

/// The fields of a recordset.
class Fields : public Collection {
  public:
    Fields(Server& server, Ref<Recordset> recordset) : Collection(server), recordset_(std::move(recordset)) {}

  protected:
    bool isOpen() const override { return recordset_->isOpen(); }
    const MemberTable& members() const override;
    long size() override { return static_cast<long>(recordset_->cursor().fields().size()); }
    std::wstring nameOf(long index) override;
    Ref<IDispatch> element(long index) override;

  private:
    Ref<Recordset> recordset_;
};

/// The fields of a table's definition.
class TableFields : public Collection {
  public:
    TableFields(Server& server, Table table) : Collection(server), table_(std::move(table)) {}

  protected:
    const MemberTable& members() const override;
    long size() override { return static_cast<long>(table_.columns.size()); }
    std::wstring nameOf(long index) override { return table_.columns[static_cast<std::size_t>(index)].name; }
    Ref<IDispatch> element(long index) override;

  private:
    Table table_;
};

}  // namespace standin::dao
