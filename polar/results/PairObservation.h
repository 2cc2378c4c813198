#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <opencv2/core.hpp>
#include <vector>

#include "polar/results/PairRecords.h"
#include "polar/results/PairStatus.h"

/// A dot that both images show, with its own id, whatever id the figures give it.
struct SharedDot {
  std::int32_t id = 0;
  cv::Point2f left;   ///< Pixel.
  cv::Point2f right;  ///< Pixel.
};

/// The cameras that a raw pair was triangulated with, as the crop leaves them: X_right = R X_left + T. All zero before.
struct SeenCameras {
  cv::Matx33d left_K, right_K;
  cv::Matx33d R;
  cv::Vec3d T;
};

/// What the evaluations of the current pair saw on their way to its figures, for those who observe a run. No figure
/// depends on it. It begins empty with each pair; what was not measured stays so.
struct PairObservation {
  const char* evaluation = "";         ///< The last one that began: "triangulation", "rows", "cloud", "board", "frame".
  PairStatus measurement = 0;          ///< Of the last measurement.
  std::array<std::size_t, 2> found{};  ///< Numbered dots of the left and the right image in that; 0 behind a failure.
  std::array<std::shared_ptr<const FailedDetection>, 2> failed{};  ///< Why too few of an image were numbered in that.
  std::vector<SharedDot> raw;                                      ///< Dots of the raw pair, in ascending id.
  std::vector<cv::Point3f> positions;                              ///< Of the raw dots: left camera frame, board unit.
  std::vector<float> residuals;  ///< Of the raw dots: pixels in the right image, 0 where nothing was predicted.
  std::vector<cv::Point2f> predicted_right;  ///< Of the raw dots: where the right image should show them, pixels.
  std::vector<cv::Point2f> fitted_left;      ///< Of the raw dots: where the fitted board shows them, left pixels.
  SeenCameras cameras;                       ///< Of the raw pair.
  std::vector<SharedDot> rectified;          ///< Dots of the rectified pair, in ascending id.
  cv::Matx44d Q;  ///< From a rectified left pixel and its disparity to the cloud; zero without a cloud by matrix.
};

/// The dots of the ids that both maps hold.
std::vector<SharedDot> sharedDots(const MeasuredPair& pair);
