#pragma once

#include "benchmark/Aims.h"

namespace benchmark {

/// What start-up, incoming calls, steps, lists and actions ask of Outlook, across the process border. Prints
/// its tables.
void measureIncomingCalls(const Scale& scale);

/// Searches in caches of several sizes beside the bare query, and with a row for each form of a number.
/// Prints its tables.
void measureSearches(const Scale& scale);

/// The filler: reading Outlook both ways, first and unchanged runs. Prints its tables.
void measureFills(const Scale& scale);

/// The filler with and without the forms of numbers, and how many rows they are. Prints its tables.
void measureForms(const Scale& scale);

/// The filler's program on large address books: time and memory. Prints its lines.
void measureFillMemory(const Scale& scale);

/// Runs of the export on directories of three sizes: calls and time for each employee. Prints its tables.
void measureExports(const Scale& scale);

/// What the window asks for each of Outlook's folders. Prints its table.
void measureFolderWalk(const Scale& scale);

/// What the driver costs its host: file, loading, start-up, memory, handles. Prints its table.
void measureFootprint(const Scale& scale);

}  // namespace benchmark
