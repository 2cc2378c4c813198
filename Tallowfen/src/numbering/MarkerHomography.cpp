#include "Tallowfen/src/numbering/MarkerHomography.h"

#include <cmath>
#include <limits>
#include <opencv2/calib3d.hpp>

namespace kestrune {

cv::Point2f centreOf(const Ellipse& ellipse) { return {static_cast<float>(ellipse.x), static_cast<float>(ellipse.y)}; }

std::vector<cv::Point2f> centresOf(const std::vector<Ellipse>& ellipses) {
  std::vector<cv::Point2f> centres;
  centres.reserve(ellipses.size());
  for (const Ellipse& ellipse : ellipses) centres.push_back(centreOf(ellipse));
  return centres;
}

std::vector<cv::Point2f> modelFromImage(const std::vector<cv::Point2f>& image_points,
                                        const std::vector<cv::Point2f>& model_points, const std::vector<Ellipse>& all) {
  const cv::Mat homography = cv::findHomography(image_points, model_points);
  std::vector<cv::Point2f> mapped;
  cv::perspectiveTransform(centresOf(all), mapped, homography);
  return mapped;
}

int nearestFive(float coordinate) { return truncated(std::round(coordinate / 5.0F) * 5.0F); }

int truncated(float coordinate) {
  constexpr float kLimit = 2147483648.0F;  // The first float beyond an integer's range.
  if (coordinate >= kLimit) return std::numeric_limits<int>::max();
  if (coordinate >= -kLimit) return static_cast<int>(coordinate);
  return std::numeric_limits<int>::min();
}

}  // namespace kestrune
