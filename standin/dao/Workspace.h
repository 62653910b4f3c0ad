#pragma once

#include <string>
#include <vector>

#include "standin/dao/Collection.h"
#include "standin/dao/Database.h"

namespace standin::dao {

/// A user's session: the databases opened in it share its transactions.
class Workspace : public DaoObject {
  public:
    /// The default workspace cannot be closed by clients.
    Workspace(Server& server, std::wstring name, bool isDefault);
    ~Workspace() override;

    bool isOpen() const override { return open_; }
    const std::wstring& name() const { return name_; }
    std::vector<Database*> openDatabases() const;

    /// Its databases enter and leave themselves.
    void add(Database& database) { databases_.push_back(&database); }
    void remove(Database& database) { std::erase(databases_, &database); }

    /// The members that the engine lends to its default workspace. Throw DaoError.
    Ref<IDispatch> openDatabase(const Arguments& arguments);
    Ref<IDispatch> createDatabase(const Arguments& arguments);
    void beginTrans();
    void commitTrans();
    void rollback();

  protected:
    const MemberTable& members() const override;

  private:
    Ref<IDispatch> attach(const std::wstring& name, Access access);
    void close();
    void raiseIfNoTransaction() const;

    std::wstring name_;
    bool isDefault_;
    bool open_ = true;
    int level_ = 0;
    std::vector<Database*> databases_;
};

}  // namespace standin::dao
