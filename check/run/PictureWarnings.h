#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polarline/set.h"
#include "polarline/warning.h"

/// What can be told of the pictures of a run without measuring them.
namespace polarline {

/// "left_0.png is 640 x 480, right_0.png is 320 x 240".
std::string sizesOf(const ListedPair& pair, const std::array<cv::Size, 2>& sizes);

/// Looks at the pictures pair by pair; each thing is warned of once, with the first pair that shows it.
class PictureWarnings {
 public:
  /// @param calib Of a binary file, which knows the size of the pictures; others have zeros there. All zeros for pairs
  /// that were
  ///              rectified elsewhere.
  void begin(const PolarConfig& config, const StereoCalibParams& calib);
  void look(int index, const ListedPair& pair, const std::array<cv::Size, 2>& sizes, bool has_colour);
  void lookAtEnds(int index, const ListedPair& pair, const std::array<bool, 2>& cut_off);

  std::vector<Warning> warnings;

 private:
  void lookAtSizes(int index, const ListedPair& pair, const std::array<cv::Size, 2>& sizes);
  void lookAtPrincipalPoints(int index, const ListedPair& pair, const std::array<cv::Size, 2>& sizes);
  void lookAtMiddle(int index, std::size_t side, const ListedPair& pair, const cv::Size& size);
  void warn(const std::string& code, int index, const std::string& text);

  bool takes_grey_only_ = false;
  bool has_principal_ = false;
  std::array<cv::Point2d, 2> principal_;
  std::array<cv::Size, 2> calibrated_;
  std::array<cv::Size, 2> first_;
};

}  // namespace polarline
