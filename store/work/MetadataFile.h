#pragma once

#include <string>

#include "polarline/batch.h"
#include "store/work/StoreFolder.h"

namespace polarline {

/// Whether the store knows of a set what the list says. A list that says nothing changes nothing.
bool hasMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings);

/// Writes down what the list says. Throws `OutputError`.
void writeMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings);

}  // namespace polarline
