#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <string>

namespace polarline {

/// A picture as the page holds it.
struct PagePicture {
  std::string source;  ///< "data:image/jpeg;base64,..."
  cv::Size size;       ///< Of the original, pixels.
};

/// What the step saw that failed.
struct FailedStep {
  PagePicture picture;
  std::string seen;  ///< What it is a picture of: "left picture", "rectified right picture".
  std::string text;  ///< Of the detection.
};

/// The pictures of a pair; none that could not be had.
struct PairPictures {
  std::optional<PagePicture> left, right;
  std::optional<FailedStep> failed;
};

}  // namespace polarline
