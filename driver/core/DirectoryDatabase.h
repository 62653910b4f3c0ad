#pragma once

#include <string>

#include "automation/Object.h"
#include "core/ContactCache.h"
#include "support/modMultiUser.h"

namespace zelbar {

/// The client's directory of employees, wxd.mdb, as far as contacts are linked to it. Read only.
class DirectoryDatabase {
  public:
    /// All that is passed must outlive the directory.
    DirectoryDatabase(ContactCache& cache, modMultiUser& paths) : cache_(cache), paths_(paths) {}

    /// A query as a dynaset. The database is opened by the first one and stays open. Throws when DAO fails.
    Object openDynaset(const std::wstring& sql);

    /// Closes the database if it is open.
    void close();

  private:
    ContactCache& cache_;
    modMultiUser& paths_;
    Object database_;
};

}  // namespace zelbar
