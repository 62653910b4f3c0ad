#include "standin/dao/DBEngine.h"

#include "standin/dao/Text.h"

namespace standin::dao {

const MemberTable& DBEngine::members() const {
    static const MemberTable table(
        L"DbEngine",
        {
            daoReadOnly<&DBEngine::workspaces>(L"Workspaces", 0),
            daoReadOnly<&DBEngine::version>(L"Version", 1610809344),
            daoMethod<&DBEngine::beginTrans>(L"BeginTrans", 1610809361),
            daoMethod<&DBEngine::commitTrans>(L"CommitTrans", 1610809362, 0, 1),
            daoMethod<&DBEngine::rollback>(L"Rollback", 1610809363),
            daoMethod<&DBEngine::createDatabase>(L"CreateDatabase", 1610809357, 2, 3),
            daoMethod<&DBEngine::openDatabase>(L"OpenDatabase", 1610809358, 1, 4),
            daoMethod<&DBEngine::createWorkspace>(L"CreateWorkspace", 1610809369, 3, 4),
            daoMethod<&DBEngine::setOption>(L"SetOption", 1610809370, 2, 2),
            controlMember<&DBEngine::standIn>(),
        },
        L"Workspaces");
    return table;
}

Ref<IDispatch> DBEngine::workspaces() {
    return makeObject<Workspaces>(server(), workspace_);
}

Ref<IDispatch> DBEngine::createWorkspace(const Arguments& arguments) {
    if (!sameText(arguments.text(1), L"admin") || !arguments.text(2).empty()) raise(3029);
    constexpr long kJet = 2;
    if (arguments.number(3, kJet) != kJet) raise(3001);
    return makeObject<Workspace>(server(), arguments.text(0), false);
}

void DBEngine::setOption(const Arguments& arguments) {
    // The engine's own settings end with the session; a test reads back what was asked for.
    constexpr long kFirst = 6;  // dbPageTimeout
    constexpr long kLast = 66;  // dbFlushTransactionTimeout
    const long option = arguments.number(0);
    if (option < kFirst || option > kLast) raise(3001);
    server().setOption(L"SetOption " + std::to_wstring(option), arguments.text(1));
}

const MemberTable& Workspaces::members() const {
    static const MemberTable table(L"Workspaces", rows(), L"Item");
    return table;
}

}  // namespace standin::dao
