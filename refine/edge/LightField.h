#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace refine {

/// The paper's grey beside a mark.
struct PaperGrey {
  cv::Point2d pixel;
  double grey = 0.0;
};

/// How the light changes over a picture: the logarithm of the paper's grey as a polynomial of second order, which takes
/// in a light from one side and a lens's falling off to the corners. Within one dot the change is too small to be told
/// from its place; without it, dots far from the middle would be a few thousandths of a pixel off.
class LightField {
 public:
  /// Even light.
  LightField() = default;
  /// Of at least `kFewest` places that are not in a line; otherwise the light counts as even. Places beside the curve
  /// by more than three times the median count no more.
  explicit LightField(const std::vector<PaperGrey>& places);
  static constexpr std::size_t kFewest = 12;

  /// Grey of the paper; 1 in even light.
  double greyAt(const cv::Point2d& pixel) const;
  /// Change by pixel along x and y, as a share of the light.
  cv::Point2d slopeAt(const cv::Point2d& pixel) const;

 private:
  bool fit(const std::vector<PaperGrey>& places, double limit);

  cv::Point2d middle_;
  double unit_ = 1.0;
  cv::Vec<double, 6> terms_ = cv::Vec<double, 6>::all(0.0);  ///< 1, x, y, xx, xy, yy.
};

}  // namespace refine
