#pragma once

#include "store/results/Sqlite.h"

namespace polarline::results {

/// What `PRAGMA application_id` of a results file says: "PLRS".
inline constexpr int kResultsApplication = 0x504C5253;

/// What `PRAGMA user_version` says; raised with every change of the tables or views.
inline constexpr int kResultsSchema = 4;

/// Opens a results file for writing: one that is new or of an earlier schema is brought to `kResultsSchema`, in one
/// transaction a step. Throws `InputError` for a file that is none of ours or of a newer schema, and leaves it alone.
std::unique_ptr<sqlite::Database> openResultsToWrite(const std::string& path);

/// What a writer does at its end, beside others that write: tells SQLite how the tables are filled, and empties the
/// log.
void finishWriting(const sqlite::Database& database);

/// Opens one to read, also from a folder that can't be written. Throws `InputError` also for one of an earlier schema,
/// and where such a folder has a log beside the file.
std::unique_ptr<sqlite::Database> openResultsToRead(const std::string& path);

}  // namespace polarline::results
