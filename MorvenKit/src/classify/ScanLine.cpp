#include "MorvenKit/src/classify/ScanLine.h"

#include <cmath>

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
  explicit TransitionCounter(const cv::Mat& binary) : binary_(binary), area_({0, 0}, binary.size()) {}

  /// A sample next to the edge may be rounded to outside the image; it is left out.
  void add(const cv::Point& pixel) {
    if (!area_.contains(pixel)) return;
    const int value = binary_.at<uchar>(pixel);
    if (last_ >= 0 && value != last_) ++transitions_;
    last_ = value;
  }
  int transitions() const { return transitions_; }

 private:
  const cv::Mat& binary_;
  cv::Rect area_;
  int last_ = -1;
  int transitions_ = 0;
};

bool isOnPicture(const cv::Point2f& point, const cv::Mat& image) {
  return point.x >= 0.0F && point.y >= 0.0F && point.x <= static_cast<float>(image.cols - 1) &&
         point.y <= static_cast<float>(image.rows - 1);
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

}  // namespace

std::optional<int> ScanLine(const cv::Point2f& from, const cv::Point2f& to, const cv::Mat& binary) {
  if (from == to || !isOnPicture(from, binary) || !isOnPicture(to, binary)) return std::nullopt;
  // Meant: a vertical ray has no samples and no say; that is why six of eight rays are enough.
  if (from.x == to.x) return kVerticalRay;
  TransitionCounter counter(binary);
  if (std::abs(from.x - to.x) > std::abs(from.y - to.y)) {
    walkRay({from.x, from.y}, {to.x, to.y}, [&counter](int x, int y) { counter.add({x, y}); });
  } else {
    walkRay({from.y, from.x}, {to.y, to.x}, [&counter](int y, int x) { counter.add({x, y}); });
  }
  counter.add({static_cast<int>(std::rint(to.x)), static_cast<int>(std::rint(to.y))});
  return counter.transitions();
}

}  // namespace kestrune::morvenkit
