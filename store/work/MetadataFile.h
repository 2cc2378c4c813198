#pragma once

#include <string>

#include "polarline/batch.h"
#include "store/work/StoreFolder.h"

/// What the list says of a set, and the hash of the settings under which it is judged, beside its document.
namespace polarline {

/// Whether the store knows of a set what is to be known of it. A list that says nothing of it changes nothing. Of lines
/// of one list that say different things of the same set the first counts, whichever worker comes first.
bool hasMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings);

/// Writes it down where it is not known. The place must be claimed. Throws `OutputError`.
void writeMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings);

}  // namespace polarline
