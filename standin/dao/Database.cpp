#include "standin/dao/Database.h"

#include "standin/dao/Cursor.h"
#include "standin/dao/Recordset.h"
#include "standin/dao/Workspace.h"

namespace standin::dao {
namespace {

constexpr long kAppendOnlyOption = 8;
constexpr long kFailOnErrorOption = 128;

CursorKind kindFor(long type) {
    switch (type) {
        case 1:
        case 2:
        case 4:
        case 8:
            return static_cast<CursorKind>(type);
        default:
            raise(3001);
    }
}

}  // namespace

Database::Database(Server& server, Ref<Workspace> workspace, std::unique_ptr<JetFile> file)
    : DaoObject(server), workspace_(std::move(workspace)), file_(std::move(file)) {
    workspace_->add(*this);
}

Database::~Database() {
    release();
    workspace_->remove(*this);
}

void Database::release() {
    for (Recordset* recordset : recordsets_) recordset->release();
    file_.reset();
}

const MemberTable& Database::members() const {
    static const MemberTable table(
        L"Database", {
                         daoReadOnly<&Database::updatable>(L"Updatable", 1610743816),
                         daoMethod<&Database::close>(L"Close", 1610809358),
                         daoMethod<&Database::execute>(L"Execute", 1610809359, 1, 2),
                         daoMethod<&Database::openRecordset>(L"OpenRecordset", 1610809383, 1, 4),
                     });
    return table;
}

Ref<IDispatch> Database::openRecordset(const Arguments& arguments) {
    const std::wstring source = arguments.text(0);
    const bool isQuery = isSelect(source);
    const CursorKind usual = isQuery ? CursorKind::dynaset : CursorKind::table;
    const CursorKind kind = arguments.has(1) ? kindFor(arguments.number(1)) : usual;
    if (kind == CursorKind::table && isQuery) raise(3219);
    const bool onlyAppends = (arguments.number(2, 0) & kAppendOnlyOption) != 0;
    if (onlyAppends && kind != CursorKind::dynaset) raise(3001);
    auto cursor = std::make_unique<Cursor>(*file_, file_->plan(source), kind, onlyAppends);
    return makeObject<Recordset>(server(), Ref<Database>(this), std::move(cursor));
}

void Database::execute(const Arguments& arguments) {
    const bool failOnError = (arguments.number(1, 0) & kFailOnErrorOption) != 0;
    file_->execute(arguments.text(0), failOnError);
}

}  // namespace standin::dao
