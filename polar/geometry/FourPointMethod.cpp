#include "polar/geometry/FourPointMethod.h"

#include <cmath>

#include "polar/geometry/PointDistance.h"

namespace four_points {

int firstMissing(const Measured& points, std::int32_t missing_sum) {
  for (std::size_t k = 0; k < points.size(); ++k) {
    const float sum = points[k].x + points[k].y + points[k].z;
    if (std::trunc(sum) == static_cast<float>(missing_sum)) return static_cast<int>(k);
  }
  return -1;
}

std::string missingText(int index) {
  static constexpr std::array<const char*, 4> kTexts = {
      "Fail detect foursix method point1", "Fail detect foursix method point2", "Fail detect foursix method point3",
      "Fail detect foursix method point4"};
  return kTexts.at(static_cast<std::size_t>(index));
}

std::array<float, 6> distanceErrors(const Measured& points, const Truth& truth) {
  std::array<float, 6> errors{};
  for (std::size_t k = 0; k < kPairs.size(); ++k) {
    const auto [a, b] = kPairs[k];
    const double true_length = lengthBySingles(narrowedDifference(truth[a], truth[b]));
    errors[k] = static_cast<float>(pointDistance(points[a], points[b]) - true_length);
  }
  return errors;
}

void replaceImplausible(const Measured& points, std::array<float, 6>& errors) {
  constexpr float kImplausible = 100.0F;  // Signed: an error far below 0 stays, which is meant.
  constexpr float kReplacement = 0.001F;
  const auto atOrigin = [&](std::size_t k) { return points[k] == cv::Point3f(0.0F, 0.0F, 0.0F); };
  for (std::size_t k = 0; k < kPairs.size(); ++k) {
    if (errors[k] > kImplausible || atOrigin(kPairs[k][0]) || atOrigin(kPairs[k][1])) errors[k] = kReplacement;
  }
}

std::array<float, 8> withExtremes(const std::array<float, 6>& errors) {
  float smallest = errors[0];
  float largest = errors[0];
  for (const float error : errors) {
    if (std::abs(error) < std::abs(smallest)) smallest = error;
    if (std::abs(error) > std::abs(largest)) largest = error;
  }
  return {errors[0], errors[1], errors[2], errors[3], errors[4], errors[5], smallest, largest};
}

}  // namespace four_points
