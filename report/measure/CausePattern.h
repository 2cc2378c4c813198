#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "diagnose/causes/RowPattern.h"
#include "report/measure/KnownCameras.h"
#include "report/read/DotLists.h"
#include "report/read/Json.h"

namespace polarline {

/// What the causes that a check tells would make of the row differences.
class CausePattern {
 public:
  CausePattern(const Json& document, const std::optional<KnownCameras>& cameras);

  /// An entry a dot, pixels of the rectified pictures; empty where no causes are told, and where it is not known.
  std::vector<double> of(const DotLists& dots) const;

  /// Why it is not known, in a sentence; empty where it is, and where no causes are told.
  const std::string& whyUnknown() const { return why_unknown_; }

 private:
  std::optional<RowPattern> pattern_;
  cv::Point2d corner_;  ///< Of the pictures as they are evaluated, in the whole ones.
  std::string why_unknown_;
};

}  // namespace polarline
