#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

namespace polarline {

/// Where the dots are on the board by its description: in one plane and on its axes, as the perspective of a circle
/// wants to know it. True positions may lie in any frame, and so little beside these that no centre moves for it.
class BoardPlaces {
 public:
  /// Knows no place.
  BoardPlaces() = default;
  /// `target`: the target configuration, a path or the text itself.
  explicit BoardPlaces(const std::string& target);

  /// Board unit; none for an id that the board does not have.
  std::optional<cv::Point3d> of(std::int32_t id) const;

 private:
  std::vector<cv::Point3d> places_;
};

}  // namespace polarline
