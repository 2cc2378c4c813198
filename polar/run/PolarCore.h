#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <opencv2/core.hpp>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/ProgressCallback.h"
#include "camera/CameraMatrices.h"
#include "camera/KeptMaps.h"
#include "camera/LensModel.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/results/PairFigures.h"

class PairEvaluator;
struct PairInput;

/// The images of a run that need not be in memory at once.
class ImageSource {
 public:
  ImageSource() = default;
  ImageSource(const ImageSource&) = delete;
  ImageSource& operator=(const ImageSource&) = delete;
  virtual ~ImageSource() = default;

  virtual std::size_t pairs() const = 0;
  /// The left and the right image of a pair, empty where one cannot be had. Asked for once each, in rising order.
  virtual std::pair<cv::Mat, cv::Mat> take(std::size_t index) = 0;
};

/// Sees each pair when the run is done with it.
class RunObserver {
 public:
  RunObserver() = default;
  RunObserver(const RunObserver&) = delete;
  RunObserver& operator=(const RunObserver&) = delete;
  virtual ~RunObserver() = default;

  /// `status`: what ended the evaluations of a pair that was given up or with which the run ends; otherwise 0.
  virtual void pairDone(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) = 0;
};

/// Dots of one picture by id (of a frame: by their places in its list), pixels of the picture as the evaluations see
/// it: cut out, if that is asked for.
using CentresById = std::map<std::int32_t, cv::Point2d>;

/// What a refiner makes of the dots of a pair.
struct RefinedCentres {
  CentresById left, right;          ///< An id that is left out here keeps the centre that it was measured at.
  std::set<std::int32_t> not_dots;  ///< Not evaluated again: what was measured there is not the dot.
};

/// Knows better where the dots of a pair are. The run evaluates each pair that it finishes once more with what it is
/// told, behind everything that it does without, and shows that; neither changes what the run gives or writes.
class CentreRefiner {
 public:
  CentreRefiner() = default;
  CentreRefiner(const CentreRefiner&) = delete;
  CentreRefiner& operator=(const CentreRefiner&) = delete;
  virtual ~CentreRefiner() = default;

  /// Centres for the places of the left and the right picture.
  virtual RefinedCentres refine(const PairInput& raw, const std::array<CentresById, 2>& places) = 0;
  /// Behind the second look at each finished pair, before the observer's `pairDone`. `status`: what ended the
  /// evaluations, an exception too, whose text is then the evaluator's error text; otherwise 0.
  virtual void evaluated(std::int32_t status, const PairEvaluator& evaluator) = 0;
};

/// What a run is given beside its configuration and its calibration.
struct RunArguments {
  std::string targetConfigPath;
  ImagePairList images;
  const ProgressCallback* progress = nullptr;  ///< May be null.
  ImageSource* source = nullptr;               ///< Takes the place of `images`; may be null.
  RunObserver* observer = nullptr;             ///< May be null. Takes the place of the run's records.
  CentreRefiner* refiner = nullptr;            ///< May be null: no pair is looked at twice.
};

/// The rectified geometry in the run's form.
struct RectifiedGeometry {
  double cx = 0.0, cy = 0.0;
  double focal = 0.0, baseline = 0.0;
  double disparity_offset = 0.0;
  std::vector<cv::Point3f> boardPoints;
};

/// The state of one run. It runs once.
class PolarCore {
 public:
  /// Configuration of the run; nothing in it can change.
  std::shared_ptr<const PolarConfig> config = std::make_shared<const PolarConfig>();

  CameraFloats right_dist{};           ///< Right camera: fx, fy, cx, cy, k1 to k6, p1, p2.
  CameraFloats left_dist{};            ///< Left camera.
  std::array<float, 3> rotation{};     ///< Extrinsic angles, radians.
  std::array<float, 3> translation{};  ///< Extrinsic translation.
  CameraMatrices left, right;          ///< Matrix and distortion of each camera.
  cv::Mat R;                           ///< 3x3: X_right = R X_left + T.
  cv::Mat T;                           ///< 3x1.
  cv::Mat Q;                           ///< 4x4 reprojection matrix of the last rectified pair.
  KeptMaps maps;                       ///< Of the rectified pairs.
  std::string errorText;               ///< Last error of the run.
  std::vector<PairFigures> records;    ///< Of the finished pairs.
  std::vector<cv::Point3f> boardPoints;
  PinholeCameraIntrinsicsPOL left_camera, right_camera;  ///< Filled for the POLY model.

  /// None for a `type` that names no model.
  std::optional<LensModel> lensModel() const { return lensModelOf(config->type); }

  /// Walks image pairs through the evaluations that the configuration asks for.
  std::int32_t ImageSetRun(const RunArguments& arguments, const StereoCalibParams& calib);
  /// Gives each pair one frame evaluation.
  std::int32_t FrameRun(const RunArguments& arguments, const StereoCalibParams& calib);
  /// Evaluates pairs that were rectified outside the library.
  std::int32_t RectificationRun(const RunArguments& arguments, const RectifiedGeometry& geometry);
};
