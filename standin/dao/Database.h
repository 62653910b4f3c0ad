#pragma once

#include <memory>
#include <vector>

#include "standin/dao/DaoObject.h"
#include "standin/dao/JetFile.h"

namespace standin::dao {

class Recordset;
class Workspace;

class Database : public DaoObject {
  public:
    Database(Server& server, Ref<Workspace> workspace, std::unique_ptr<JetFile> file);
    ~Database() override;

    bool isOpen() const override { return file_ != nullptr; }
    /// Only while it is open.
    JetFile& file() { return *file_; }
    /// Closes it and its recordsets.
    void release();

    /// Its recordsets enter and leave themselves.
    void add(Recordset& recordset) { recordsets_.push_back(&recordset); }
    void remove(Recordset& recordset) { std::erase(recordsets_, &recordset); }

  protected:
    const MemberTable& members() const override;

  private:
    bool updatable() const { return !file_->isReadOnly(); }
    Ref<IDispatch> openRecordset(const Arguments& arguments);
    void execute(const Arguments& arguments);
    void close() { release(); }

    Ref<Workspace> workspace_;
    std::unique_ptr<JetFile> file_;
    std::vector<Recordset*> recordsets_;
};

}  // namespace standin::dao
