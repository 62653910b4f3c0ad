#pragma once

#include <string>
#include <utility>
#include <vector>

#include "automation/Object.h"

namespace zelbar {

/// A directory database as the client keeps it, made and changed by a test through DAO.
class Directory {
  public:
    /// Makes the file with its empty tables.
    explicit Directory(const std::wstring& path);
    /// Lets go of it.
    void close();

    /// An employee; the columns that are not named stay Null.
    void add(long id, std::vector<std::pair<const wchar_t*, std::wstring>> columns);
    /// An entry on a supervision page.
    void place(long id, long page, bool bound = false);
    /// `count` employees with the keys 1, 2, ... on page 2.
    void fill(long count);
    void execute(const std::wstring& sql);

  private:
    Gateway gateway_;
    Object engine_;
    Object database_;
};

}  // namespace zelbar
