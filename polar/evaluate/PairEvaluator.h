#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <opencv2/core.hpp>
#include <string>
#include <utility>
#include <vector>

#include "camera/CameraIntrinsicsBase.h"
#include "camera/CameraMatrices.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "input/PolarConfig.h"

/// Status of one evaluation: 0, a value of `polar_status`, or a value that only the run sees.
using PairStatus = std::int32_t;

/// An evaluation whose measurement failed, whatever the measurement's own status was.
inline constexpr PairStatus kMeasurementFailed = 1;
/// A point of a configured group is missing in the cloud.
inline constexpr PairStatus kGroupPointMissing = 12;

/// With fewer shared points a raw pair is not evaluated.
inline constexpr std::size_t kLeastSharedRaw = 6;
/// With fewer shared points a rectified pair is not evaluated.
inline constexpr std::size_t kLeastSharedRectified = 3;
/// With fewer known points a board is not compared with.
inline constexpr std::size_t kLeastBoardPoints = 31;

/// Board points of one image by id, in ascending id; the first point of an id wins.
using PointsById = std::map<std::int32_t, cv::Point2f>;

/// The measured points of a pair. Entries of equal index in the two lists belong to the same board point.
struct MeasuredPair {
  std::vector<cv::Point2f> left_points;
  std::vector<cv::Point2f> right_points;
  PointsById left_by_id;
  PointsById right_by_id;
};

/// One shared point as the evaluations keep it during a run.
struct PairPointRecord {
  std::int32_t id = 0;
  float left_x = 0.0F, left_y = 0.0F;    ///< Measured pixel, left.
  float right_x = 0.0F, right_y = 0.0F;  ///< Measured pixel, right.
  float x = 0.0F, y = 0.0F, z = 0.0F;    ///< Triangulated point, left camera frame, board unit.
  float right_err = 0.0F;                ///< Residual in the right image, pixels; 0 when that step did not run.
  std::vector<std::pair<std::int32_t, float>> dis_errors;  ///< Signed distance error to each other point.
  std::vector<std::pair<std::int32_t, float>> nor_errors;  ///< The same, divided by the true distance.
  float dis_rms = 0.0F;
  float nor_rms = 0.0F;
};

/// One point of the rectified pair's cloud.
struct CloudPoint {
  std::int32_t id = 0;
  float row_dist = 0.0F;  ///< Distance to the point with id + 1; 0 when there is none.
  float col_dist = 0.0F;  ///< Distance to the point with id + `pattern_cols`; 0 when there is none.
  float x = 0.0F, y = 0.0F, z = 0.0F;
};

/// Camera matrices and extrinsics that an evaluation works with: X_right = R X_left + T.
struct EvaluationCameras {
  cv::Mat left_K;
  cv::Mat right_K;
  cv::Mat R;
  cv::Mat T;
};

/// The evaluations of one run and the figures of its current pair. Lives from before the first pair to the end of the
/// run; a figure keeps its value until an evaluation that comes to its end replaces it.
class PairEvaluator {
 public:
  explicit PairEvaluator(std::shared_ptr<const PolarConfig> configuration);

  // Figures of the row disparity, pixels. `dy_variance` stands among them and reaches no record.
  float dy_means = 0.0F, dy_variance = 0.0F, dy_min = 0.0F, dy_max = 0.0F;
  float dy_ratio = 0.0F;  ///< Share of points above `dy_bias_divid`.
  // Spacing of the cloud: mean error, largest and smallest.
  float allpoints_means = 0.0F, allpoint_max = 0.0F, allpoints_min = 0.0F;
  // Residuals in the right image, pixels.
  float tri_mean = 0.0F, tri_min = 0.0F, tri_max = 0.0F, tri_rms = 0.0F;
  float tri_ratio = 0.0F;  ///< Share of points below `tri_bias_divid`.
  std::array<float, 8>
      pol_dis{};  ///< Distance errors of the four cloud points: 1-2, 1-3, 2-4, 3-4, 1-4, 2-3, min, max.
  std::array<float, 8> tri_dis{};  ///< The same of the four triangulated points.
  std::int32_t usable = 1;         ///< 1 after a measurement with enough points; cleared when too few are shared.

  CameraFloats right_dist{};             ///< Right camera: fx, fy, cx, cy, k1 to k6, p1, p2.
  CameraFloats left_dist{};              ///< Left camera.
  std::array<float, 3> rotation{};       ///< Extrinsic angles, radians.
  std::array<float, 3> translation{};    ///< Extrinsic translation.
  std::string errorText;                 ///< Last error of an evaluation.
  std::string result_folder;             ///< Empty: nothing is written.
  std::array<float, 5> rectified{};      ///< Focal, baseline, cx, cy, disparity offset of images rectified outside.
  std::vector<cv::Point3f> boardPoints;  ///< True positions by id.
  bool eccentricity = false;   ///< Compensate the eccentricity of imaged centres; the run switches it off for good.
  std::vector<double> id_dis;  ///< One value a `Cal_ID_DIS` entry.
  float dis_rms = 0.0F, nor_rms = 0.0F, zero_dis = 0.0F;
  std::int32_t image_id = 0;  ///< Number of the current pair in file names.
  cv::Mat residual_image;     ///< Right image of the pair, for the residual picture.
  cv::Mat eval_left_K, eval_right_K;
  cv::Mat R;
  cv::Mat detect_canvas;              ///< Both images side by side with the marked points.
  std::array<float, 8> PoseReport{};  ///< Left rx, ry, rz (degrees), distance; then right.
  std::vector<PairPointRecord> pairPoints;
  std::vector<double> frameValues;
  float icp_x_rms = 0.0F, icp_y_rms = 0.0F, icp_z_rms = 0.0F, icp_nor_rms = 0.0F;
  float gt_rms = 0.0F;
  double space_rms = 0.0;

  /// Replaces the measurement of the images when set: first argument 0 for the full measurement, 1 for detection only.
  /// For evaluations of points that come from elsewhere.
  std::function<PairStatus(std::int32_t evalu_model, MeasuredPair& pair)> measurement;

  const PolarConfig& config() const { return *config_; }

  // --- Measurement (PairMeasurement.cpp, PointDetection.cpp)
  /// Measures by `evalu_model`: 0 in full, 1 by detection only, anything else not at all (success with empty lists).
  PairStatus measure(const std::int32_t& evalu_model, const char* targetConfigPath, const cv::Mat& left_image,
                     const cv::Mat& right_image, MeasuredPair& pair);
  PairStatus MeasurePairPoints(const char* targetConfigPath, const cv::Mat& left_image, const cv::Mat& right_image,
                               MeasuredPair& pair);
  PairStatus DetectPairPoints(const char* targetConfigPath, const cv::Mat& left_image, const cv::Mat& right_image,
                              MeasuredPair& pair) const;
  /// Whether both lists hold at least `minimum` points; `usable` tells the same afterwards.
  bool enoughShared(const MeasuredPair& pair, std::size_t minimum);

  // --- Raw pair (DistanceMetrics.cpp)
  PairStatus CalTriangulateRepBrown(const std::int32_t& evalu_model, const char* targetConfigPath,
                                    const cv::Mat& left_image, const cv::Mat& right_image,
                                    const EvaluationCameras& cameras);
  PairStatus CalTriangulateRepPOLY(const std::int32_t& evalu_model, const char* targetConfigPath,
                                   const cv::Mat& left_image, const cv::Mat& right_image,
                                   const EvaluationCameras& cameras, const CameraIntrinsicsBase& left_camera,
                                   const CameraIntrinsicsBase& right_camera);
  /// The residual step; false when it fails, the figures then stay.
  bool CheckResidual(const std::vector<cv::Point2f>& measured_right, const std::vector<cv::Point2f>& predicted_right,
                     std::vector<float>& errors);
  /// Fits `source` to `target` by one motion (Kabsch 1976, without the correction of reflections) and prints it.
  std::array<float, 4>& AlignRigid(std::array<float, 4>& rms, const std::vector<cv::Point3f>& source,
                                   const std::vector<cv::Point3f>& target, std::vector<cv::Point3f>& aligned);

  // --- Board check (BoardCheck.cpp)
  PairStatus CheckBoardBrown(const std::int32_t& evalu_model, const char* targetConfigPath, const cv::Mat& left_image,
                             const cv::Mat& right_image, const EvaluationCameras& cameras);
  PairStatus CheckBoardPoly(const std::int32_t& evalu_model, const char* targetConfigPath, const cv::Mat& left_image,
                            const cv::Mat& right_image, const EvaluationCameras& cameras,
                            const CameraIntrinsicsBase& left_camera, const CameraIntrinsicsBase& right_camera);

  // --- Rectified pair (RowDisparity.cpp, PointCloud.cpp)
  /// `variance_x`, `variance_y`: variances of the absolute column and row differences.
  PairStatus CheckRowDisparity(const std::int32_t& evalu_model, const char* targetConfigPath,
                               const cv::Mat& left_rectified, const cv::Mat& right_rectified, float& variance_x,
                               float& variance_y);
  PairStatus CheckPointCloud(const std::int32_t& evalu_model, const char* targetConfigPath,
                             const cv::Mat& left_rectified, const cv::Mat& right_rectified, const cv::Mat& Q,
                             std::vector<cv::Point2f>& left_points, std::vector<cv::Point2f>& right_points,
                             std::vector<CloudPoint>& cloud);
  /// For images rectified outside the library; `Q` is not read.
  PairStatus CheckPointCloudGroups(const std::int32_t& evalu_model, const char* targetConfigPath,
                                   const cv::Mat& left_rectified, const cv::Mat& right_rectified, const cv::Mat& Q,
                                   std::vector<cv::Point2f>& left_points, std::vector<cv::Point2f>& right_points,
                                   std::vector<CloudPoint>& cloud);

  // --- Frame (FrameEvaluation.cpp)
  PairStatus CalFramePrecision(const std::int32_t& evalu_model, const char* targetConfigPath, const cv::Mat& left_image,
                               const cv::Mat& right_image, const EvaluationCameras& cameras,
                               const CameraIntrinsicsBase& left_camera, const CameraIntrinsicsBase& right_camera);

 private:
  std::shared_ptr<const PolarConfig> config_;
};
