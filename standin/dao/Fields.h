#pragma once

#include "standin/dao/Collection.h"
#include "standin/dao/Recordset.h"

namespace standin::dao {

/// A field of a recordset's rows.
class Field : public DaoObject {
  public:
    Field(Server& server, Ref<Recordset> recordset, std::size_t index);

  protected:
    bool isOpen() const override { return recordset_->isOpen(); }
    const MemberTable& members() const override;

  private:
    Value value() const;
    void setValue(const Value& value);
    const std::wstring& name() const { return name_; }

    Ref<Recordset> recordset_;
    std::size_t index_;
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

}  // namespace standin::dao
