#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "camera/CameraFloats.h"
#include "camera/CameraIntrinsicsBase.h"
#include "input/PolarConfig.h"
#include "polar/measure/DetectionMemory.h"
#include "polar/measure/PairMeasurement.h"
#include "polar/results/PairFigures.h"
#include "polar/results/PairObservation.h"
#include "polar/results/PairRecords.h"
#include "polar/results/PairStatus.h"

/// Geometry of images that were rectified outside the library, in single precision.
struct RectifiedFloats {
  float focal = 0.0F, baseline = 0.0F, cx = 0.0F, cy = 0.0F;
  float disparity_offset = 0.0F;
};

/// The evaluations of one run and the figures of its current pair. Lives from before the first pair to the end of the
/// run; a figure keeps its value until an evaluation that comes to its end replaces it.
class PairEvaluator {
 public:
  explicit PairEvaluator(std::shared_ptr<const PolarConfig> configuration);

  PairFigures figures;
  PairObservation seen;  ///< Written only: no evaluation reads it, but for whether it is filled already.

  // What a run sets before its first pair.
  CameraFloats right_dist{};             ///< Right camera: fx, fy, cx, cy, k1 to k6, p1, p2.
  CameraFloats left_dist{};              ///< Left camera.
  RectifiedFloats rectified;             ///< Geometry of images rectified outside.
  std::string result_folder;             ///< Empty: nothing is written.
  std::vector<cv::Point3f> boardPoints;  ///< True positions by id.

  // What changes from pair to pair.
  std::int32_t image_id = 0;   ///< Number of the current pair in file names.
  std::int32_t usable = 1;     ///< 0 after a measurement with too few shared points. Nothing in the library reads it.
  bool eccentricity = false;   ///< Compensate the eccentricity of imaged centres; the run switches it off for good.
  std::string errorText;       ///< Last error of an evaluation.
  DetectionMemory detections;  ///< Of the current pair; the run empties it with each.

  /// Replaces the measurement of the images when set: first argument 0 for the full measurement, 1 for detection only.
  /// A second look sets it, and tests do, to evaluate points of their own.
  std::function<PairStatus(std::int32_t evalu_model, MeasuredPair& pair)> measurement;
  /// Replaces the detection of a frame when set: the frame points of both images by their places in the list.
  std::function<MeasuredPair()> frame_measurement;
  /// Told of each measurement that succeeded, also of a frame's points by place, when set; `seen.evaluation` says for
  /// whom. No figure depends on it.
  std::function<void(const MeasuredPair& pair)> on_measured;

  const PolarConfig& config() const { return *config_; }

  // --- Measurement (PairEvaluator.cpp)
  /// Measures as `input` asks. A measurement that is not asked for succeeds with the lists as they are.
  PairStatus measure(const PairInput& input, MeasuredPair& pair);
  PairStatus MeasurePairPoints(const PairInput& input, MeasuredPair& pair);
  PairStatus DetectPairPoints(const PairInput& input, MeasuredPair& pair);
  /// Whether both lists hold at least `minimum` points; `usable` tells the same afterwards.
  bool enoughShared(const MeasuredPair& pair, std::size_t minimum);

  // --- Raw pair (raw/)
  PairStatus CalTriangulateRepBrown(const PairInput& raw);
  PairStatus CalTriangulateRepPOLY(const PairInput& raw, const CameraIntrinsicsBase& left_camera,
                                   const CameraIntrinsicsBase& right_camera);
  /// The residual step; false when it fails, the figures then stay. The picture of the residuals is drawn on
  /// `right_image`.
  bool CheckResidual(const cv::Mat& right_image, const std::vector<cv::Point2f>& measured_right,
                     const std::vector<cv::Point2f>& predicted_right, std::vector<float>& errors);
  PairStatus CheckBoardBrown(const PairInput& raw);
  PairStatus CheckBoardPoly(const PairInput& raw, const CameraIntrinsicsBase& left_camera,
                            const CameraIntrinsicsBase& right_camera);

  // --- Rectified pair (rectified/)
  /// `variance_x`, `variance_y`: variances of the absolute column and row differences; no run reads them.
  PairStatus CheckRowDisparity(const PairInput& rectified_pair, float& variance_x, float& variance_y);
  /// `left_points`, `right_points`: the shared pixels; no run reads them.
  PairStatus CheckPointCloud(const PairInput& rectified_pair, const cv::Mat& Q, std::vector<cv::Point2f>& left_points,
                             std::vector<cv::Point2f>& right_points, std::vector<CloudPoint>& cloud);
  /// For images rectified outside the library.
  PairStatus CheckPointCloudGroups(const PairInput& rectified_pair, std::vector<cv::Point2f>& left_points,
                                   std::vector<cv::Point2f>& right_points, std::vector<CloudPoint>& cloud);

  // --- Frame (frame/)
  PairStatus CalFramePrecision(const PairInput& raw, const CameraIntrinsicsBase& left_camera,
                               const CameraIntrinsicsBase& right_camera);

 private:
  PairStatus measureAs(const PairInput& input, MeasuredPair& pair);

  std::shared_ptr<const PolarConfig> config_;
};
