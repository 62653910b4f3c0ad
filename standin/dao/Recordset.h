#pragma once

#include <memory>

#include "standin/dao/Cursor.h"
#include "standin/dao/DaoObject.h"

namespace standin::dao {

class Database;

class Recordset : public DaoObject {
  public:
    Recordset(Server& server, Ref<Database> database, std::unique_ptr<Cursor> cursor);
    ~Recordset() override;

    bool isOpen() const override { return cursor_ != nullptr; }
    /// Only while it is open.
    Cursor& cursor() { return *cursor_; }
    /// Ends it, as Close does and as closing its database does.
    void release() { cursor_.reset(); }

  protected:
    const MemberTable& members() const override;

  private:
    bool bof() const { return cursor_->isBeforeFirst(); }
    bool eof() const { return cursor_->isAfterLast(); }
    long recordCount() const { return cursor_->count(); }
    Ref<IDispatch> fields();

    void moveFirst();
    void moveLast();
    void moveNext() { cursor_->moveNext(); }
    void movePrevious();
    void remove() { cursor_->remove(); }
    void addNew() { cursor_->addNew(); }
    void update() { cursor_->update(); }
    /// So many rows from the current one on, fields by rows; goes to the first that was not read.
    Value getRows(const Arguments& arguments);
    void close() { release(); }
    void refuseIfForwardOnly() const;

    Ref<Database> database_;
    std::unique_ptr<Cursor> cursor_;
};

}  // namespace standin::dao
