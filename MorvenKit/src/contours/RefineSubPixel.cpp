#include "MorvenKit/src/contours/RefineSubPixel.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

namespace kestrune::morvenkit {

namespace {

constexpr std::size_t kNeighbours = 4;
/// Steps to the neighbours: the first that qualifies counts, so the order matters. The last is none.
constexpr std::array<float, kNeighbours + 1> kStepsX = {1, -1, 0, 0, 0}, kStepsY = {0, 0, 1, -1, 0};

bool isInside(const cv::Point& point, const cv::Mat& image) {
  return point.x >= 0 && point.y >= 0 && point.x < image.cols && point.y < image.rows;
}

/// Whether all neighbours of a point are inside, too.
bool isWellInside(const cv::Point& point, const cv::Mat& image) {
  return point.x > 0 && point.y > 0 && point.x < image.cols - 1 && point.y < image.rows - 1;
}

/// The greys of the neighbours and which of them there are, a bit for each.
struct Neighbours {
  std::array<int, kNeighbours> greys;
  unsigned present;
};

Neighbours neighboursInside(const cv::Point& point, const cv::Mat& grey) {
  const uchar* pixel = grey.ptr<uchar>(point.y) + point.x;
  const auto row = static_cast<std::ptrdiff_t>(grey.step[0]);
  return {{pixel[1], pixel[-1], pixel[row], pixel[-row]}, (1U << kNeighbours) - 1};
}

Neighbours neighboursAtBorder(const cv::Point& point, const cv::Mat& grey) {
  Neighbours neighbours{};
  for (std::size_t k = 0; k < kNeighbours; ++k) {
    const cv::Point neighbour(point.x + static_cast<int>(kStepsX[k]), point.y + static_cast<int>(kStepsY[k]));
    if (!isInside(neighbour, grey)) continue;
    neighbours.greys[k] = grey.at<uchar>(neighbour);
    neighbours.present |= 1U << k;
  }
  return neighbours;
}

/// All bits where it holds, none where not.
unsigned bitsIf(bool condition) { return 0U - static_cast<unsigned>(condition); }

/// Without a branch on the greys: which neighbour it is at a dot's edge cannot be foretold.
cv::Point2f refine(const cv::Point& point, int value, int level, const Neighbours& neighbours) {
  unsigned brighter = 0;
  for (std::size_t k = 0; k < kNeighbours; ++k) brighter |= static_cast<unsigned>(neighbours.greys[k] > level) << k;
  // A neighbour exactly at the level counts as below it: a brighter point moves onto it, a darker one stays. Meant.
  const unsigned beyond = brighter ^ bitsIf(value >= level);
  const unsigned qualified = beyond & neighbours.present & bitsIf(value != level);
  const auto k = static_cast<std::size_t>(std::countr_zero(qualified | 1U << kNeighbours));
  // For no neighbour anything else than the value, so that nothing is divided by 0.
  const std::array<int, kNeighbours + 1> others = {neighbours.greys[0], neighbours.greys[1], neighbours.greys[2],
                                                   neighbours.greys[3], value + 1};
  const float t = static_cast<float>(value - level) / static_cast<float>(value - others[k]);
  return {static_cast<float>(point.x) + kStepsX[k] * t, static_cast<float>(point.y) + kStepsY[k] * t};
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
    if (isWellInside(point, grey)) {
      refined.push_back(refine(point, grey.at<uchar>(point), level, neighboursInside(point, grey)));
    } else if (inside(point)) {
      refined.push_back(refine(point, grey.at<uchar>(point), level, neighboursAtBorder(point, grey)));
    }
  }
  return refined;
}

}  // namespace kestrune::morvenkit
