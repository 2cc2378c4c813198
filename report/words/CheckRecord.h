#pragma once

#include "polarline/check.h"
#include "report/read/Json.h"

namespace polarline {

/// As much of a check as its sentences need, from its document: verdict, status, limits, warnings, summaries, and of
/// the pairs whether they are finished, why not, and how certain their figures are.
Check checkRecord(const Json& document);

/// The unit of a figure, of which a list's entries have brackets behind the name: "pixels", "board unit", "degrees";
/// empty for a bare number and for what is no figure.
std::string unitOf(const std::string& figure);

}  // namespace polarline
