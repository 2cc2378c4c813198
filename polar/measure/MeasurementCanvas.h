#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

/// Which image of a pair.
enum class Side : std::uint8_t { kLeft, kRight };

/// Both images of a pair side by side, as wide as twice the left one, with what the measurement found in them. Pixels
/// of either image are given in that image's own frame.
class MeasurementCanvas {
 public:
  /// Normalised as one picture: both halves of a 16-bit pair share one stretch. With an empty image the picture stays
  /// black. Throws `cv::Exception` for images of different size or type.
  MeasurementCanvas(const cv::Mat& left_image, const cv::Mat& right_image);

  /// Circle and id of one of the chosen points, red.
  void markPoint(Side side, std::int32_t id, const cv::Point2d& centre);
  /// Small circles on an edge: green on the left, blue on the right.
  void markEdge(Side side, const std::vector<cv::Point2f>& edge_pixels);

  const cv::Mat& picture() const { return picture_; }

 private:
  float shiftOf(Side side) const { return side == Side::kLeft ? 0.0F : static_cast<float>(left_cols_); }

  int left_cols_;
  cv::Mat picture_;
};
