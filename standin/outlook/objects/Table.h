#pragma once

#include <vector>

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// What a table and its collection of columns share.
struct TableState {
    RowId folder = 0;
    // The items that are hidden; this mailbox keeps none.
    bool hidden = false;
    // Names as they were added; they say what is shown.
    std::vector<std::wstring> columns;
    // The position of the next row.
    std::size_t next = 0;
};

// A folder's rows, as Outlook 2007 and later give them: without opening an item, but with texts cut.
class Table final : public OutlookObject {
  public:
    Table(std::shared_ptr<Session> session, RowId folder, bool hidden);

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;

  private:
    // Read again whenever the mailbox has changed: what is added or deleted moves the rows behind it.
    const std::vector<RowId>& rows();
    Ref<Object> columns();
    bool endOfTable() { return state_->next >= rows().size(); }
    long rowCount() { return static_cast<long>(rows().size()); }
    // The next rows as an array of columns by rows, both counted from 0.
    Value getArray(const Arguments& arguments);
    void moveToStart() { state_->next = 0; }

    std::shared_ptr<TableState> state_;
    std::vector<RowId> rows_;
    long version_ = -1;
};

// The columns of a table. Every change of them puts the table before its first row.
class Columns final : public OutlookObject {
  public:
    Columns(std::shared_ptr<Session> session, std::shared_ptr<TableState> state)
        : OutlookObject(std::move(session), ObjectClass::Columns), state_(std::move(state)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override;

  private:
    long count() const { return static_cast<long>(state_->columns.size()); }
    // By position; by name Nothing when there is none.
    Ref<Object> item(const Arguments& arguments);
    // Guarded.
    Ref<Object> add(const Arguments& arguments);
    void removeAll();

    std::shared_ptr<TableState> state_;
};

class Column final : public OutlookObject {
  public:
    Column(std::shared_ptr<Session> session, std::shared_ptr<TableState> state, std::wstring name)
        : OutlookObject(std::move(session), ObjectClass::Column),
          state_(std::move(state)),
          name_(std::move(name)) {}

  protected:
    const MemberTable& members() const override;
    Ref<Object> parent() override { return makeOf<Columns>(*this, state_); }

  private:
    std::wstring name() const { return name_; }

    std::shared_ptr<TableState> state_;
    std::wstring name_;
};

}  // namespace standin::outlook
