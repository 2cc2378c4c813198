#include "MorvenKit/src/edges/EdgeHysteresis.h"

#include <vector>

namespace kestrune::morvenkit {

namespace {

/// Spreads from seeds over connected weak pixels.
class Flood {
 public:
  explicit Flood(const cv::Mat_<uchar>& weak)
      : weak_(weak), area_({0, 0}, weak.size()), result_(weak.size(), uchar{0}) {}

  void from(const cv::Point& seed) {
    take(seed);
    while (!stack_.empty()) {
      const cv::Point at = stack_.back();
      stack_.pop_back();
      for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) take({at.x + dx, at.y + dy});
      }
    }
  }

  const cv::Mat_<uchar>& result() const { return result_; }

 private:
  void take(const cv::Point& pixel) {
    if (!area_.contains(pixel) || weak_(pixel) == 0 || result_(pixel) != 0) return;
    result_(pixel) = 255;
    stack_.push_back(pixel);
  }

  const cv::Mat_<uchar>& weak_;
  cv::Rect area_;
  cv::Mat_<uchar> result_;
  std::vector<cv::Point> stack_;
};

}  // namespace

cv::Mat_<uchar> edgeHysteresis(const cv::Mat_<uchar>& ridges, const cv::Mat_<float>& magnitude, double low,
                               double high) {
  cv::Mat_<uchar> weak = ridges.clone();
  weak.setTo(0, magnitude <= low);
  const cv::Mat strong = magnitude > high;
  Flood flood(weak);
  for (int y = 0; y < weak.rows; ++y) {
    for (int x = 0; x < weak.cols; ++x) {
      if (weak(y, x) != 0 && strong.at<uchar>(y, x) != 0) flood.from({x, y});
    }
  }
  return flood.result();
}

}  // namespace kestrune::morvenkit
