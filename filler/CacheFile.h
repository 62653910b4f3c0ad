#pragma once

#include <string>

#include "automation/Gateway.h"
#include "automation/Object.h"
#include "filler/Observer.h"

namespace filler {

/// The cache database. Where there is none yet, a new one grows under another name and gets its own only when
/// it is complete: the driver never meets half a file.
class CacheFile {
  public:
    /// Opens the file beside whoever else has it open, or begins a new one. A file that is damaged, no cache
    /// or not to be written is refused. Throws a Fault or a Failure.
    CacheFile(zelbar::Gateway& gateway, const std::wstring& path);
    ~CacheFile();
    CacheFile(const CacheFile&) = delete;
    CacheFile& operator=(const CacheFile&) = delete;

    bool isNew() const { return isNew_; }
    const zelbar::Object& workspace() const { return workspace_; }
    const zelbar::Object& database() const { return database_; }

    /// Closes the file after the last change, which nothing can take back now; a new one appears under its
    /// own name. A virus scanner that holds it is given some seconds.
    void finish(Observer& observer);

  private:
    /// What the other one has begun, this one's end clears away.
    explicit CacheFile(const std::wstring& path);
    void openOld();
    void close() noexcept;

    std::wstring path_;
    bool isNew_;
    bool isFinished_ = false;
    zelbar::Object workspace_;
    zelbar::Object database_;
};

/// One transaction of a workspace; rolled back unless it is committed.
class Transaction {
  public:
    explicit Transaction(const zelbar::Object& workspace);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();
    /// What follows is in a transaction of its own.
    void commitAndGoOn();

  private:
    void begin();

    zelbar::Object workspace_;
    bool open_ = false;
};

}  // namespace filler
