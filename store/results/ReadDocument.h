#pragma once

#include <string_view>

#include "store/results/DocumentRows.h"

namespace polarline::results {

/// Reads the document of a check, schema "polarline-check/1". Keys that are not known are passed over, as new ones may
/// come. Throws `JsonFault` with words for a text that is no such document.
DocumentRows readDocument(std::string_view text);

}  // namespace polarline::results
