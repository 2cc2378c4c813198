#include <chrono>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "camera/RectifyPair.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/OutputFile.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/Summary.h"
#include "polar/run/PairWalk.h"
#include "polar/run/PolarCore.h"
#include "polar/run/RunCameras.h"
#include "polar/run/RunTexts.h"

namespace {

constexpr PairResult kPairFinished{PairOutcome::kFinished, 0};

/// The evaluations of an image-set run, in the order in which a pair passes them.
class ImageSetPair {
 public:
  ImageSetPair(PolarCore& core, PairEvaluator& evaluator, std::string result_dir)
      : core_(core), config_(*core.config), evaluator_(evaluator), result_dir_(std::move(result_dir)) {}

  PairResult operator()(std::size_t index, const PairInput& raw) {
    if (config_.triangulate_dis_switch != 0 || config_.triangulate_residual_switch != 0) {
      const PairStatus status = triangulate(raw);
      if (status != 0 && config_.discalsave) return {PairOutcome::kEndRun, keepError(status)};
      if (status != 0) return giveUp(status);
    }
    if (config_.dy_bias_switch != 0 || config_.foursixmethod_swithch != 0) {
      const RectifiedPair rectified = rectify(raw);
      save(rectified, index);
      const PairInput pair{raw.evalu_model, raw.targetConfigPath, rectified.left, rectified.right};
      if (config_.dy_bias_switch != 0) {
        if (const PairStatus status = rowDisparity(pair); status != 0) return giveUp(status);
      }
      if (config_.foursixmethod_swithch != 0 || config_.allpointssavecsv_swithch != 0) {
        if (const PairStatus status = pointCloud(pair); status != 0) return giveUp(status);
      }
    }
    const PairStatus status = config_.spaceRms_switch ? boardCheck(raw) : 0;
    return status == 0 ? kPairFinished : giveUp(status);
  }

 private:
  bool isPoly() const { return core_.lensModel() == LensModel::kPoly; }

  std::int32_t keepError(PairStatus status) {
    core_.errorText = evaluator_.errorText;
    return status;
  }

  PairResult giveUp(PairStatus status) {
    core_.errorText = evaluator_.errorText;
    return {PairOutcome::kGivenUp, status};
  }

  PairStatus triangulate(const PairInput& raw) {
    evaluator_.seen.evaluation = "triangulation";
    console::line(isPoly() ? run_texts::kTriangulatesPoly : run_texts::kTriangulatesBrown);
    return isPoly() ? evaluator_.CalTriangulateRepPOLY(raw, core_.left_camera, core_.right_camera)
                    : evaluator_.CalTriangulateRepBrown(raw);
  }

  RectifiedPair rectify(const PairInput& raw) {
    auto rectified = RectifyPair({config_.f_scale, config_.x_y, core_.left_camera, core_.right_camera},
                                 {core_.left.K, core_.left.D, core_.right.K, core_.right.D, core_.R, core_.T},
                                 raw.left_image, raw.right_image, core_.lensModel(), core_.Q);
    if (!rectified) throw std::out_of_range("x_y must be 0 or 1");
    return std::move(*rectified);
  }

  void save(const RectifiedPair& rectified, std::size_t index) const {
    if (config_.result_folder.empty() || result_dir_.empty()) return;
    const std::string name = files::kPathSeparator + std::to_string(index);
    files::writeImage(result_dir_ + name + ".png", rectified.canvas);
    files::writeImage(result_dir_ + "_left" + name + "_left.png", rectified.left);
    files::writeImage(result_dir_ + "_right" + name + "_right.png", rectified.right);
  }

  // The compensation stays off for the rest of the run, in the triangulation of later pairs, too: a set whose pairs are
  // rectified is measured with it in its first pair only. That is meant.
  PairStatus rowDisparity(const PairInput& rectified) {
    evaluator_.eccentricity = false;
    evaluator_.seen.evaluation = "rows";
    float variance_x = 0.0F;
    float variance_y = 0.0F;
    return evaluator_.CheckRowDisparity(rectified, variance_x, variance_y);
  }

  PairStatus pointCloud(const PairInput& rectified) {
    evaluator_.eccentricity = false;
    evaluator_.seen.evaluation = "cloud";
    std::vector<cv::Point2f> left_points;
    std::vector<cv::Point2f> right_points;
    std::vector<CloudPoint> cloud;
    return evaluator_.CheckPointCloud(rectified, core_.Q, left_points, right_points, cloud);
  }

  PairStatus boardCheck(const PairInput& raw) {
    evaluator_.seen.evaluation = "board";
    console::line(isPoly() ? run_texts::kChecksBoardPoly : run_texts::kChecksBoardBrown);
    return isPoly() ? evaluator_.CheckBoardPoly(raw, core_.left_camera, core_.right_camera)
                    : evaluator_.CheckBoardBrown(raw);
  }

  PolarCore& core_;
  const PolarConfig& config_;
  PairEvaluator& evaluator_;
  std::string result_dir_;
};

// All three are asked for before any is judged; what could be made stays.
bool makeResultFolders(const std::string& result_dir) {
  const std::int32_t both = files::MakeFolder(result_dir);
  const std::int32_t left = files::MakeFolder(result_dir + "_left");
  const std::int32_t right = files::MakeFolder(result_dir + "_right");
  return both == 0 && left == 0 && right == 0;
}

}  // namespace

std::int32_t PolarCore::ImageSetRun(const RunArguments& arguments, const StereoCalibParams& calib) {
  if (!isStereoSet(*this, arguments)) return polar_status::kImages;
  const auto start = std::chrono::steady_clock::now();

  std::string result_dir;
  if (!config->result_folder.empty() && config->savepolarline != 0) {
    result_dir = config->result_folder + files::kPathSeparator + "result";
    if (!makeResultFolders(result_dir)) {
      errorText = run_texts::kResultFolderError;
      console::line(errorText);
      return polar_status::kResultFolder;
    }
  }
  files::OutputFile summary(freeSummaryPath(*config));
  writeSummaryHeader(summary, *config);

  if (!loadRunCameras(*this, calib)) {
    errorText = run_texts::kReadPolyError;
    return polar_status::kPolyTables;
  }
  if (!reportProgress(*this, arguments.progress, run_texts::kRunBegunPercent)) return polar_status::kStoppedByCallback;

  PairEvaluator evaluator = makeEvaluator(*this);
  const WalkRules rules{.counts_given_up = true, .writes_every_row = false};
  return walkPairs(*this, arguments, evaluator, summary, start, rules, ImageSetPair(*this, evaluator, result_dir));
}
