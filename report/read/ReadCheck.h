#pragma once

#include <optional>
#include <string>
#include <vector>

#include "polarline/report.h"
#include "report/read/DotLists.h"
#include "report/read/Json.h"

namespace polarline {

/// The dots of a pair of a document.
struct ReadPair {
  DotLists points;
  std::optional<DotLists> refined;
};

/// A document of a check that has been looked through: every key that the page reads is there and of its kind.
struct ReadCheck {
  Json json;                    ///< Without the points of the pairs.
  std::vector<ReadPair> pairs;  ///< In the order of the document.
  std::string path;             ///< Of the document; empty where it was none.
};

/// Throws `InputError`.
ReadCheck readCheck(const ReportDocument& document);

}  // namespace polarline
