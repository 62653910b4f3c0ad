#pragma once

#include <windows.h>

#include <string>

#include "standin/dao/Sqlite.h"

namespace standin::dao {

/// The small file beside a database that tells others that it is in use. Jet needs it, and so the right to
/// make it, for every database that is not opened for reading alone.
class LockFile {
  public:
    /// An empty name makes no file. Throws error 3051 when the folder does not let us.
    explicit LockFile(const std::wstring& path);
    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    static std::wstring pathFor(const std::wstring& database);

  private:
    std::wstring path_;
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

/// The whole path, from the current folder on.
std::wstring wholePath(const std::wstring& name);

/// Throws the error that DAO gives for a file that cannot be opened so: 3024, 3044, 3045, 3051, 3343, 3356.
void checkDatabaseFile(const std::wstring& path, Access access);

/// Throws 3204 when the file is there, 3044 when its folder is not, 3051 when the folder does not let us.
void checkNewDatabaseFile(const std::wstring& path);

}  // namespace standin::dao
