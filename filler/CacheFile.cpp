#include "filler/CacheFile.h"

#include <windows.h>

#include "automation/Attempts.h"
#include "automation/DaoEngine.h"
#include "automation/DaoNames.h"
#include "automation/Fault.h"
#include "filler/CacheTable.h"
#include "filler/Failure.h"
#include "support/mLogError.h"

namespace filler {
namespace {

namespace dao = zelbar::dao;
using zelbar::Object;

/// The sort order that serves the western languages.
constexpr wchar_t kGeneralOrder[] = L";LANGID=0x0409;CP=1252;COUNTRY=0";

/// The engine stops a transaction at 9500 page locks unless told otherwise: too few for a large address book.
constexpr long kMostLocks = 1000000;

bool fileExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Lies beside the cache, and keeps the ending that the engine would add of itself.
std::wstring unfinishedPath(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L'.')) + L"_new.mdb";
}

Object createEngine(zelbar::Gateway& gateway) {
    try {
        return dao::createEngine(gateway);
    } catch (const zelbar::Fault& fault) {
        throw Failure{L"No DAO engine can be used to write the cache: " + fault.description};
    }
}

void putInPlace(const std::wstring& path, Observer& observer) {
    constexpr int kMostTries = 20;
    constexpr DWORD kPause = 250;
    for (int tries = 1; !MoveFileW(unfinishedPath(path).c_str(), path.c_str()); ++tries) {
        const DWORD error = GetLastError();
        const bool isHeld =
            error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!isHeld || tries == kMostTries)
            throw Failure{L"The new cache cannot be put in its place: " + zelbar::GetSystemErrorText(error)};
        observer.pause(kPause);
    }
}

}  // namespace

CacheFile::CacheFile(const std::wstring& path) : path_(path), isNew_(!fileExists(path)) {}

CacheFile::CacheFile(zelbar::Gateway& gateway, const std::wstring& path) : CacheFile(path) {
    const Object engine = createEngine(gateway);
    // An engine without the setting still serves all but very large address books.
    zelbar::Attempts()([&] { engine.call(dao::SetOption, dao::kMaxLocksPerFile, kMostLocks); });
    workspace_ = engine.object(dao::CreateWorkspace, L"", L"admin", L"", dao::kUseJet);
    if (!isNew_) {
        openOld();
        return;
    }
    const std::wstring unfinished = unfinishedPath(path_);
    DeleteFileW(unfinished.c_str());  // what an interrupted first run has left
    database_ = workspace_.object(dao::CreateDatabase, unfinished, kGeneralOrder);
}

void CacheFile::openOld() {
    database_ = workspace_.object(dao::OpenDatabase, path_);
    if (!database_.boolean(dao::Updatable))
        throw Failure{L"The cache " + path_ + L" is read-only, or its folder is."};
    tableExists(database_, storeLayout());
    tableExists(database_, numberLayout());
}

CacheFile::~CacheFile() {
    close();
    if (isNew_ && !isFinished_) DeleteFileW(unfinishedPath(path_).c_str());
}

void CacheFile::finish(Observer& observer) {
    close();
    if (isNew_) putInPlace(path_, observer);
    isFinished_ = true;
}

void CacheFile::close() noexcept {
    zelbar::Attempts attempt;
    if (database_) attempt([&] { database_.call(dao::Close); });
    database_ = {};
    if (workspace_) attempt([&] { workspace_.call(dao::Close); });
    workspace_ = {};
}

Transaction::Transaction(const Object& workspace) : workspace_(workspace) {
    begin();
}

void Transaction::begin() {
    workspace_.call(dao::BeginTrans);
    open_ = true;
}

Transaction::~Transaction() {
    if (open_) zelbar::Attempts()([&] { workspace_.call(dao::Rollback); });
}

void Transaction::commit() {
    workspace_.call(dao::CommitTrans);
    open_ = false;
}

void Transaction::commitAndGoOn() {
    commit();
    begin();
}

}  // namespace filler
