#pragma once

#include "store/results/Sqlite.h"

namespace polarline::results {

/// A step from one version of the schema to the next, within a transaction.
using SchemaStep = void (*)(const sqlite::Database& database);

/// From an empty file to version 1.
void makeFirstSchema(const sqlite::Database& database);

/// From 1 to 2: what the texts of limits say stands in a table, so that how far a set is beyond its limits can be
/// asked.
void addLimitRules(const sqlite::Database& database);

/// From 3 to 4: where sets lay, so that a set whose files were away is known for one that was judged.
void addPlaces(const sqlite::Database& database);

/// Drops every view and makes those of the current version: views hold nothing, so a step need not know them.
void makeViews(const sqlite::Database& database);

}  // namespace polarline::results
