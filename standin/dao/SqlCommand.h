#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standin/dao/Schema.h"

namespace standin::dao {

/// A statement that changes data or tables, as one or more of SQLite's.
struct Command {
    std::vector<std::wstring> statements;
    std::vector<Cell> values;  ///< for the one statement of a command that changes data
    bool changesTables = false;
};

/// Throws DAO's errors for what Jet would not accept.
Command translateCommand(std::wstring_view sql, const Schema& schema);

}  // namespace standin::dao
