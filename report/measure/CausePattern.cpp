#include "report/measure/CausePattern.h"

#include <cmath>

#include "report/measure/Crop.h"
#include "report/read/Settings.h"

namespace polarline {
namespace {

std::vector<Cause> causesOf(const Json& document) {
  std::vector<Cause> causes;
  const auto diagnosis = document.find("diagnosis");
  if (diagnosis == document.end() || !diagnosis->is_object()) return causes;
  for (const Json& each : (*diagnosis)["causes"]) {
    Cause cause;
    cause.name = each["name"].get<std::string>();
    cause.value = numberOf(each["value"]);
    if (std::isfinite(cause.value)) causes.push_back(cause);
  }
  return causes;
}

}  // namespace

CausePattern::CausePattern(const Json& document, const std::optional<KnownCameras>& cameras)
    : corner_(partLookedAt(document).tl()) {
  const std::vector<Cause> causes = causesOf(document);
  if (causes.empty()) return;
  // Turned pictures have their rows along the other axis.
  if (settingOf(document, "x_y", 0.0) != 0.0) {
    why_unknown_ = "What remains without the causes is not known: the run turned its pictures.";
    return;
  }
  why_unknown_ =
      "What remains without the causes is not known: the document does not hold all of these cameras, and their "
      "calibration is not where it was, or has changed.";
  if (!cameras) return;
  try {
    pattern_.emplace(cameras->calib, cameras->model, settingOf(document, "f_scale", 1.0), misalignmentOf(causes));
    why_unknown_.clear();
  } catch (const cv::Exception&) {
    pattern_.reset();  // Cameras that stand as no cameras can.
  }
}

std::vector<double> CausePattern::of(const DotLists& dots) const {
  std::vector<double> rows;
  if (!pattern_ || dots.left_x.empty() || dots.left_y.empty() || dots.right_x.empty() || dots.right_y.empty())
    return rows;
  rows.reserve(dots.id.size());
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    rows.push_back(pattern_->at(corner_ + cv::Point2d(dots.left_x[k], dots.left_y[k]),
                                corner_ + cv::Point2d(dots.right_x[k], dots.right_y[k])));
  }
  return rows;
}

}  // namespace polarline
