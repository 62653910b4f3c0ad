#pragma once

#include "standin/dao/DaoObject.h"

namespace standin::dao {

/// What DAO's collections have in common: elements by number from 0, or by name.
class Collection : public DaoObject {
  protected:
    using DaoObject::DaoObject;

    virtual long size() = 0;
    virtual std::wstring nameOf(long index) = 0;
    virtual Ref<IDispatch> element(long index) = 0;

    Value count() { return Value(static_cast<short>(size())); }
    Ref<IDispatch> item(const Arguments& arguments);
    Ref<IEnumVARIANT> newEnum();

    /// The rows that every collection's table has.
    static std::vector<Member> rows();
};

}  // namespace standin::dao
