#include "diagnose/warnings/ShownBaseline.h"

#include <fmt/format.h>

#include "diagnose/warnings/Codes.h"
#include "diagnose/warnings/Thresholds.h"
#include "platform/PlainNumber.h"

namespace diagnose {

cv::Vec3d shownBaseline(const CameraPose& left, const CameraPose& right) {
  return right.T - right.R * left.R.t() * left.T;
}

std::optional<polarline::Warning> judgeBaseline(const cv::Vec3d& shown, const cv::Vec3d& told, int pair) {
  const double ratio = cv::norm(shown) / cv::norm(told);
  if (!(ratio < thresholds::kSameLength && ratio > 1.0 / thresholds::kSameLength)) {
    const std::string text = fmt::format(
        "The calibration puts the cameras {} apart, but the pictures show them about {} board units "
        "apart, {} times as far",
        plain::rounded(cv::norm(told), 4), plain::rounded(cv::norm(shown), 4), plain::rounded(ratio, 3));
    return warning("baseline_unit", text, pair);
  }
  if (shown.dot(told) < thresholds::kOpposite * cv::norm(shown) * cv::norm(told))
    return warning("sides_exchanged",
                   "The pictures show the right camera on the other side of the left one than the calibration does",
                   pair);
  return std::nullopt;
}

}  // namespace diagnose
