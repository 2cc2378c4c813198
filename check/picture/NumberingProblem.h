#pragma once

#include <optional>

#include "polarline/detect.h"
#include "polarline/warning.h"

namespace polarline {

/// Of the warnings of a detection the one that says why its dots bear the numbers of others; none where they are right
/// as far as one picture shows.
std::optional<Warning> numberingProblem(const Detection& detection);

}  // namespace polarline
