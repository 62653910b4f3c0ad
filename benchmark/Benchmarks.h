#pragma once

namespace benchmark {

/// An incoming call and what it asks of Outlook, across the process border. Prints its tables.
void measureIncomingCalls();

/// Searches in caches of two sizes beside the bare query. Prints its table.
void measureSearches();

/// Runs of the export on directories of three sizes: calls and time for each employee. Prints its tables.
void measureExports();

/// One line below a table: whether an aim is reached.
void reportAim(const char* aim, bool reached);

}  // namespace benchmark
