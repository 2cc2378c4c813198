#include "MorvenKit/src/classify/ScanLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace kestrune::morvenkit {

namespace {

/// What std::round gives, without the call: halves go away from zero.
int rounded(float value) {
  const int whole = static_cast<int>(value);
  const float rest = value - static_cast<float>(whole);
  return whole + (rest >= 0.5F ? 1 : 0) - (rest <= -0.5F ? 1 : 0);
}

/// Counts changes between the pixels that it is given one after the other.
class TransitionCounter {
 public:
  void add(int value) {
    changes_ += static_cast<int>(value != last_);
    last_ = value;
  }
  int transitions() const { return std::max(changes_ - 1, 0); }

 private:
  int last_ = -1;
  int changes_ = 0;  ///< The first pixel, which has none before it, counts as one.
};

// Pixels. By rounding, a sample is at most half a pixel before the ray's beginning, where the ray's straight line is at
// most half a pixel aside, and half a pixel off that line: one in all, and one more to be sure.
constexpr float kStray = 2.0F;

bool isOnPicture(const cv::Point2f& point, const cv::Mat& image, float margin = 0.0F) {
  return point.x >= margin && point.y >= margin && point.x <= static_cast<float>(image.cols - 1) - margin &&
         point.y <= static_cast<float>(image.rows - 1) - margin;
}

/// A point's coordinates along the image axis that the ray follows most, and along the other one.
struct AxisPoint {
  float major, minor;
};

template <typename AddPixel>
void walkRay(const AxisPoint& from, const AxisPoint& to, AddPixel addPixel) {
  const float length = from.major - to.major;
  const float slope = (from.minor - to.minor) / length;
  const int step = length > 0.0F ? -1 : 1;
  const int start = rounded(from.major);
  const int steps = static_cast<int>(std::abs(length) + 1.0F);
  for (int k = 0; k < steps; ++k) {
    const int major = start + k * step;
    const auto along = static_cast<float>(major);
    if (along == to.major) continue;
    addPixel(major, rounded((along - from.major) * slope + from.minor));
  }
}

template <bool kAllInside>
int countTransitions(const cv::Point2f& from, const cv::Point2f& to, const cv::Mat& binary) {
  // The axes by index, 0 is x and 1 is y, instead of by a branch: which one a ray follows cannot be foretold.
  const std::array<float, 2> begin = {from.x, from.y}, end = {to.x, to.y};
  const std::array<int, 2> size = {binary.cols, binary.rows};
  const std::array<std::ptrdiff_t, 2> step = {1, static_cast<std::ptrdiff_t>(binary.step[0])};
  const std::size_t major = std::abs(from.x - to.x) > std::abs(from.y - to.y) ? 0 : 1, minor = 1 - major;
  TransitionCounter counter;
  const auto add = [&](int along, int across) {
    // A sample next to the edge may be rounded to outside the image; it is left out.
    if (!kAllInside && (along < 0 || across < 0 || along >= size[major] || across >= size[minor])) return;
    counter.add(binary.data[along * step[major] + across * step[minor]]);
  };
  walkRay({begin[major], begin[minor]}, {end[major], end[minor]}, add);
  add(static_cast<int>(std::rint(end[major])), static_cast<int>(std::rint(end[minor])));
  return counter.transitions();
}

}  // namespace

std::optional<int> ScanLine(const cv::Point2f& from, const cv::Point2f& to, const cv::Mat& binary) {
  const bool all_inside = isOnPicture(from, binary, kStray) && isOnPicture(to, binary, kStray);
  if (from == to || (!all_inside && !(isOnPicture(from, binary) && isOnPicture(to, binary)))) return std::nullopt;
  // Meant: a vertical ray has no samples and no say; that is why six of eight rays are enough.
  if (from.x == to.x) return kVerticalRay;
  return all_inside ? countTransitions<true>(from, to, binary) : countTransitions<false>(from, to, binary);
}

}  // namespace kestrune::morvenkit
