#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "diagnose/causes/RowPattern.h"
#include "report/read/DotLists.h"
#include "report/read/Json.h"

namespace polarline {

/// What the causes that a check tells would make of the row differences.
class CausePattern {
 public:
  explicit CausePattern(const Json& document);

  /// An entry a dot, pixels of the rectified pictures; empty where no causes are told, and where the document does not
  /// hold all of the cameras.
  std::vector<double> of(const DotLists& dots) const;

 private:
  std::optional<RowPattern> pattern_;
  cv::Point2d corner_;  ///< Of the pictures as they are evaluated, in the whole ones.
};

}  // namespace polarline
