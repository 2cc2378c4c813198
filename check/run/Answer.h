#pragma once

#include <vector>

#include "polarline/check.h"

namespace polarline {

/// A check, and what it rests on.
struct Answer {
  Check check;
  /// The files of the set with their hashes, pictures left out, as far as the answer follows from what stands in them;
  /// empty where one was away or changed, so that it says nothing of the set.
  std::vector<SetInput> files;
};

/// As `check`.
Answer answerOf(const Set& set, const CheckOptions& options);

}  // namespace polarline
