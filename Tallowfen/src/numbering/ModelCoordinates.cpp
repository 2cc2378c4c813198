#include "Tallowfen/src/numbering/ModelCoordinates.h"

#include <cmath>
#include <limits>
#include <opencv2/calib3d.hpp>

#include "Tallowfen/src/ellipses/Centres.h"

namespace kestrune {

std::vector<cv::Point2f> modelFromImage(const std::vector<cv::Point2f>& image_points,
                                        const std::vector<cv::Point2f>& model_points, const std::vector<Ellipse>& all) {
  const cv::Mat homography = cv::findHomography(image_points, model_points);
  std::vector<cv::Point2f> mapped;
  cv::perspectiveTransform(centresOf(all), mapped, homography);
  return mapped;
}

int nearestFive(float coordinate) {
  // Half a grid step: what lies less than a quarter of a step short of its place still gets into that place's cell.
  constexpr float kMultiple = 5.0F;
  return truncated(std::round(coordinate / kMultiple) * kMultiple);
}

int truncated(float coordinate) {
  constexpr float kLimit = 2147483648.0F;  // The first float beyond an integer's range.
  if (coordinate >= kLimit) return std::numeric_limits<int>::max();
  if (coordinate >= -kLimit) return static_cast<int>(coordinate);
  return std::numeric_limits<int>::min();
}

}  // namespace kestrune
