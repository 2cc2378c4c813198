#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/LensModel.h"
#include "input/StereoCalibParams.h"

/// A dot that both pictures of a raw pair show.
struct SeenDot {
  std::int32_t id = 0;
  cv::Point2d left, right;                        ///< Pixels.
  cv::Matx22d left_covariance, right_covariance;  ///< Square pixels; zero: unknown.
  std::optional<cv::Point3d> board;               ///< True position, board unit.
};

struct SeenPair {
  std::size_t index = 0;      ///< Position in the set's list.
  std::vector<SeenDot> dots;  ///< In ascending id.
};

/// What a diagnosis looks at: the pairs that were measured, and the calibration that they are judged by.
struct SeenSet {
  StereoCalibParams calib;
  LensModel model = LensModel::kBrownFive;
  cv::Size size;  ///< Of the pictures.
  std::vector<SeenPair> pairs;
  double f_scale = 1.0;  ///< Of the polar configuration: what the rectification makes of the focal length.
};
