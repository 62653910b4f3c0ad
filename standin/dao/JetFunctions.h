#pragma once

struct sqlite3;

namespace standin::dao {

/// Gives a connection what SQLite lacks of Jet: jet_like(pattern, text), jet_length(text) in UTF-16 units,
/// the sort order JET, and JET_PREFIX, in which texts that begin alike lie side by side.
void addJetFunctions(sqlite3* connection);

}  // namespace standin::dao
