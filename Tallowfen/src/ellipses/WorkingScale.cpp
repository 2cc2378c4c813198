#include "Tallowfen/src/ellipses/WorkingScale.h"

#include <opencv2/imgproc.hpp>

namespace kestrune {

namespace {

// Columns. Small images are enlarged, as the dots' outlines need enough pixels for a fit; large ones have more than
// enough and are halved.
constexpr int kWidestOfFourfold = 320;
constexpr int kWidestOfTwofold = 640;
constexpr int kNarrowestOfHalved = 2048;

}  // namespace

WorkingScale workingScaleOf(cv::Size image_size) {
  if (image_size.width <= kWidestOfFourfold) return {{4 * image_size.width, 4 * image_size.height}, 0.25, true};
  if (image_size.width <= kWidestOfTwofold) return {{2 * image_size.width, 2 * image_size.height}, 0.5, true};
  if (image_size.width < kNarrowestOfHalved) return {image_size, 1.0, false};
  return {{static_cast<int>(image_size.width * 0.5), static_cast<int>(image_size.height * 0.5)}, 2.0, true};
}

cv::Mat workingImage(const cv::Mat& image, const WorkingScale& scale) {
  if (!scale.resized) return image;
  cv::Mat resized;
  cv::resize(image, resized, scale.size, 0.0, 0.0, cv::INTER_LINEAR);
  return resized;
}

void mapToImage(const WorkingScale& scale, std::vector<Ellipse>& ellipses) {
  if (!scale.resized) return;
  for (Ellipse& ellipse : ellipses) {
    ellipse.semi_a *= scale.image_per_working;
    ellipse.semi_b *= scale.image_per_working;
    ellipse.x = (ellipse.x + 0.5) * scale.image_per_working - 0.5;
    ellipse.y = (ellipse.y + 0.5) * scale.image_per_working - 0.5;
  }
}

}  // namespace kestrune
