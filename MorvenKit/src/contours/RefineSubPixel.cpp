#include "MorvenKit/src/contours/RefineSubPixel.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrune::morvenkit {

namespace {

struct Step {
  int dx, dy;
};

/// The first neighbour that qualifies counts, so the order matters.
constexpr std::array<Step, 4> kNeighbours = {{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};

bool isInside(const cv::Point& point, const cv::Mat& image) {
  return point.x >= 0 && point.y >= 0 && point.x < image.cols && point.y < image.rows;
}

/// Whether all neighbours of a point are inside, too.
bool isWellInside(const cv::Point& point, const cv::Mat& image) {
  return point.x > 0 && point.y > 0 && point.x < image.cols - 1 && point.y < image.rows - 1;
}

cv::Point2f refine(const cv::Point& point, int level, const cv::Mat& grey) {
  const auto x = static_cast<float>(point.x), y = static_cast<float>(point.y);
  const uchar* pixel = grey.ptr<uchar>(point.y) + point.x;
  const int value = *pixel;
  if (value == level) return {x, y};
  const bool has_all = isWellInside(point, grey);
  for (const auto& [dx, dy] : kNeighbours) {
    if (!has_all && !isInside({point.x + dx, point.y + dy}, grey)) continue;
    const int other = pixel[dy * static_cast<std::ptrdiff_t>(grey.step[0]) + dx];
    // A neighbour exactly at the level counts as below it: a brighter point moves onto it, a darker one stays. Meant.
    if ((other > level) != (value < level)) continue;
    const float t = static_cast<float>(value - level) / static_cast<float>(value - other);
    return {x + static_cast<float>(dx) * t, y + static_cast<float>(dy) * t};
  }
  return {x, y};
}

}  // namespace

std::vector<cv::Point2f> RefineSubPixel(const Contour& contour, const cv::Mat& grey) {
  std::vector<cv::Point2f> refined;
  const auto inside = [&grey](const cv::Point& point) { return isInside(point, grey); };
  const auto first = std::find_if(contour.begin(), contour.end(), inside);
  if (first == contour.end()) return refined;
  const int level = grey.at<uchar>(*first);
  refined.reserve(contour.size());
  for (const cv::Point& point : contour) {
    if (inside(point)) refined.push_back(refine(point, level, grey));
  }
  return refined;
}

}  // namespace kestrune::morvenkit
