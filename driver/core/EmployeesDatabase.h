#pragma once

#include <string>

#include "automation/Object.h"
#include "core/ContactCache.h"

namespace zelbar {

/// The directory database whose path the client passes when it exports its employees. Read only; it stays
/// open from the first export until shut-down.
class EmployeesDatabase {
  public:
    /// The cache, in whose workspace the database is opened, must outlive this.
    explicit EmployeesDatabase(ContactCache& cache) : cache_(cache) {}

    /// Opens the database unless that is the open one; an empty path stands for the open one, whichever it
    /// is. Throws when DAO fails, or when nothing is open and nothing named.
    void open(const std::wstring& path);

    /// A query's rows as they are now. When that fails the database is closed, so that the next export opens
    /// it anew, and the fault is thrown.
    Object openSnapshot(const std::wstring& sql);

    /// Closes the database if it is open.
    void close();

  private:
    ContactCache& cache_;
    std::wstring path_;
    Object database_;
};

}  // namespace zelbar
