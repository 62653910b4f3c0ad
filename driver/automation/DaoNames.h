#pragma once

#include "automation/Member.h"

/// DAO: the classes, members and values that the driver and the filler use. DAO's objects have no class
/// numbers of their own; these are ours.
namespace zelbar::dao {

inline constexpr ObjectClass kEngine = 1;
inline constexpr ObjectClass kWorkspace = 2;
inline constexpr ObjectClass kDatabase = 3;
inline constexpr ObjectClass kRecordset = 4;
inline constexpr ObjectClass kFields = 5;
inline constexpr ObjectClass kField = 6;

inline constexpr long kUseJet = 2;
inline constexpr long kOpenDynaset = 2;
inline constexpr long kOpenSnapshot = 4;
inline constexpr long kOpenForwardOnly = 8;
inline constexpr long kAppendOnly = 8;
inline constexpr long kMaxLocksPerFile = 62;

/// Error numbers.
inline constexpr long kRecordIsDeleted = 3167;
inline constexpr long kItemNotFound = 3265;

/// The engines that can serve, newest sure one first.
inline constexpr const wchar_t* kEngineProgIds[] = {L"DAO.DBEngine.36", L"DAO.DBEngine.35",
                                                    L"DAO.DBEngine.120"};

inline constexpr Member SetOption{L"SetOption"};
inline constexpr Member CreateWorkspace{L"CreateWorkspace", kWorkspace};
inline constexpr Member OpenDatabase{L"OpenDatabase", kDatabase};
inline constexpr Member Updatable{L"Updatable"};
inline constexpr Member CreateDatabase{L"CreateDatabase", kDatabase};
inline constexpr Member BeginTrans{L"BeginTrans"};
inline constexpr Member CommitTrans{L"CommitTrans"};
inline constexpr Member Rollback{L"Rollback"};
inline constexpr Member Close{L"Close"};
inline constexpr Member Execute{L"Execute"};
inline constexpr Member OpenRecordset{L"OpenRecordset", kRecordset};

inline constexpr Member BOF_{L"BOF"};
inline constexpr Member EOF_{L"EOF"};
inline constexpr Member RecordCount{L"RecordCount"};
inline constexpr Member MoveFirst{L"MoveFirst"};
inline constexpr Member MoveLast{L"MoveLast"};
inline constexpr Member MoveNext{L"MoveNext"};
inline constexpr Member GetRows{L"GetRows"};
inline constexpr Member MovePrevious{L"MovePrevious"};
inline constexpr Member Delete{L"Delete"};
inline constexpr Member AddNew{L"AddNew"};
inline constexpr Member Update{L"Update"};
inline constexpr Member Fields{L"Fields", kFields};
/// `Fields` with a name goes straight to the field: it is the collection's default member.
inline constexpr Member FieldNamed{L"Fields", kField};
inline constexpr Member Value{L"Value"};

}  // namespace zelbar::dao
