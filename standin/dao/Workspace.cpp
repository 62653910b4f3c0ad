#include "standin/dao/Workspace.h"

#include <algorithm>
#include <iterator>

namespace standin::dao {
namespace {

constexpr int kDeepestTransaction = 5;

}  // namespace

Workspace::Workspace(Server& server, std::wstring name, bool isDefault)
    : DaoObject(server), name_(std::move(name)), isDefault_(isDefault) {}

Workspace::~Workspace() = default;

const MemberTable& Workspace::members() const {
    static const MemberTable table(
        L"Workspace", {
                          daoMethod<&Workspace::beginTrans>(L"BeginTrans", 1610809353),
                          daoMethod<&Workspace::commitTrans>(L"CommitTrans", 1610809354, 0, 1),
                          daoMethod<&Workspace::rollback>(L"Rollback", 1610809355),
                          daoMethod<&Workspace::close>(L"Close", 1610809356),
                          daoMethod<&Workspace::openDatabase>(L"OpenDatabase", 1610809358, 1, 4),
                          daoMethod<&Workspace::createDatabase>(L"CreateDatabase", 1610809359, 2, 3),
                      });
    return table;
}

std::vector<Database*> Workspace::openDatabases() const {
    std::vector<Database*> open;
    std::copy_if(databases_.begin(), databases_.end(), std::back_inserter(open),
                 [](const Database* database) { return database->isOpen(); });
    return open;
}

Ref<IDispatch> Workspace::attach(const std::wstring& name, Access access) {
    auto file = std::make_unique<JetFile>(name, access);
    // What is opened inside a transaction takes part in it.
    for (int level = 0; level < level_; ++level) file->begin();
    return makeObject<Database>(server(), Ref<Workspace>(this), std::move(file));
}

Ref<IDispatch> Workspace::openDatabase(const Arguments& arguments) {
    const bool exclusive = arguments.has(1) && toBool(arguments[1]);
    const bool readOnly = arguments.has(2) && toBool(arguments[2]);
    const Access access = exclusive ? Access::exclusive : readOnly ? Access::readOnly : Access::readWrite;
    return attach(arguments.text(0), access);
}

Ref<IDispatch> Workspace::createDatabase(const Arguments& arguments) {
    return attach(arguments.text(0), Access::create);
}

void Workspace::beginTrans() {
    if (level_ == kDeepestTransaction) raise(3003);
    for (Database* database : openDatabases()) database->file().begin();
    ++level_;
}

void Workspace::commitTrans() {
    raiseIfNoTransaction();
    for (Database* database : openDatabases()) database->file().commit();
    --level_;
}

void Workspace::rollback() {
    raiseIfNoTransaction();
    for (Database* database : openDatabases()) database->file().rollback();
    --level_;
}

void Workspace::raiseIfNoTransaction() const {
    if (level_ == 0) raise(3034);
}

void Workspace::close() {
    if (isDefault_) return;
    // Closing a file gives up what was not committed.
    for (Database* database : openDatabases()) database->release();
    level_ = 0;
    open_ = false;
}

}  // namespace standin::dao
