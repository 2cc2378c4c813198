#include <chrono>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "camera/CalibratedPair.h"
#include "camera/RectificationMaps.h"
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
#include "polar/run/SecondLook.h"

namespace {

constexpr PairResult kPairFinished{PairOutcome::kFinished, 0};

RectificationSettings rectificationSettings(const PolarCore& core) {
  return {core.config->f_scale, core.config->x_y, core.left_camera, core.right_camera};
}

StereoMatrices stereoMatrices(const PolarCore& core) {
  return {core.left.K, core.left.D, core.right.K, core.right.D, core.R, core.T};
}

/// The evaluations of an image-set run, in the order in which a pair passes them.
class ImageSetPair {
 public:
  ImageSetPair(PolarCore& core, PairEvaluator& evaluator, std::string result_dir)
      : core_(core), config_(*core.config), evaluator_(evaluator), result_dir_(std::move(result_dir)) {}

  PairResult operator()(std::size_t index, const PairInput& raw) {
    const PairResult result = evaluate(raw, [&] {
      const RectifiedPair rectified = rectify(raw);
      save(rectified, index);
      return PairInput{raw.evalu_model, raw.targetConfigPath, rectified.left, rectified.right};
    });
    if (result.outcome != PairOutcome::kFinished) core_.errorText = evaluator_.errorText;
    return result;
  }

  /// The same once more with points that the evaluator is given: nothing is rectified, as nobody looks at the pictures,
  /// and the core keeps what the pair left in it.
  PairStatus again(const PairInput& raw) {
    return evaluate(raw, [&] { return PairInput{raw.evalu_model, raw.targetConfigPath, {}, {}}; }).status;
  }

 private:
  bool isPoly() const { return core_.lensModel() == LensModel::kPoly; }

  template <typename Rectified>
  PairResult evaluate(const PairInput& raw, const Rectified& rectified) {
    if (config_.triangulate_dis_switch != 0 || config_.triangulate_residual_switch != 0) {
      const PairStatus status = triangulate(raw);
      if (status != 0 && config_.discalsave) return {PairOutcome::kEndRun, status};
      if (status != 0) return givenUp(status);
    }
    if (config_.dy_bias_switch != 0 || config_.foursixmethod_swithch != 0) {
      const PairInput pair = rectified();
      if (config_.dy_bias_switch != 0) {
        if (const PairStatus status = rowDisparity(pair); status != 0) return givenUp(status);
      }
      if (config_.foursixmethod_swithch != 0 || config_.allpointssavecsv_swithch != 0) {
        if (const PairStatus status = pointCloud(pair); status != 0) return givenUp(status);
      }
    }
    const PairStatus status = config_.spaceRms_switch ? boardCheck(raw) : 0;
    return status == 0 ? kPairFinished : givenUp(status);
  }

  static PairResult givenUp(PairStatus status) { return {PairOutcome::kGivenUp, status}; }

  PairStatus triangulate(const PairInput& raw) {
    evaluator_.seen.evaluation = "triangulation";
    console::line(isPoly() ? run_texts::kTriangulatesPoly : run_texts::kTriangulatesBrown);
    return isPoly() ? evaluator_.CalTriangulateRepPOLY(raw, core_.left_camera, core_.right_camera)
                    : evaluator_.CalTriangulateRepBrown(raw);
  }

  RectifiedPair rectify(const PairInput& raw) {
    auto rectified = RectifyPair(rectificationSettings(core_), stereoMatrices(core_), raw.left_image, raw.right_image,
                                 core_.lensModel(), core_.maps, core_.Q);
    if (!rectified) throw std::out_of_range(run_texts::kUnknownDirection);
    return std::move(*rectified);
  }

  void save(const RectifiedPair& rectified, std::size_t index) const {
    if (config_.result_folder.empty() || result_dir_.empty()) return;
    const std::string name = files::kPathSeparator + std::to_string(index);
    files::writeImage(result_dir_ + name + ".png", rectified.canvas());
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

/// Where the rectified pictures of the core's cameras show a pair.
PairViews viewsOf(const PolarCore& core, const std::optional<CalibratedPair>& lenses, const cv::Size& size) {
  PairViews views;
  if (lenses) {
    const Rectification pair =
        virtualPair(rectificationSettings(core), stereoMatrices(core), size, core.lensModel().value());
    views = {VirtualView(core.left.K, lenses->left, pair.R1, pair.P1),
             VirtualView(core.right.K, lenses->right, pair.R2, pair.P2)};
  }
  if (core.config->x_y != kQuarterTurn) return views;
  return {views.left.turned(size.height), views.right.turned(size.height)};
}

SecondSteps secondSteps(PolarCore& core, const StereoCalibParams& calib) {
  const auto model = core.lensModel();
  const auto lenses = model ? std::optional(CalibratedPair(calib, *model)) : std::nullopt;
  return {
      [&core, lenses](const PairInput& raw) { return viewsOf(core, lenses, raw.left_image.size()); },
      [&core](const PairInput& raw, PairEvaluator& evaluator) { return ImageSetPair(core, evaluator, "").again(raw); }};
}

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
  PairEvaluation evaluate = ImageSetPair(*this, evaluator, result_dir);
  if (arguments.refiner != nullptr) {
    evaluate = withSecondLook(evaluate, *arguments.refiner, evaluator, secondSteps(*this, calib));
  }
  return walkPairs(*this, arguments, evaluator, summary, start, rules, evaluate);
}
