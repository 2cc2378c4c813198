#include <chrono>
#include <string>

#include "PolarLinePrecision/Status.h"
#include "camera/RectifyPair.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "polar/results/SummaryFile.h"
#include "polar/run/PairWalk.h"
#include "polar/run/PolarCore.h"
#include "polar/run/RunCameras.h"

namespace {

constexpr PairResult kPairFinished{PairOutcome::kFinished, 0};

/// The evaluations of an image-set run, in the order in which a pair passes them.
class ImageSetPair {
 public:
  ImageSetPair(PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator, std::string result_dir)
      : core_(core), arguments_(arguments), evaluator_(evaluator), result_dir_(std::move(result_dir)) {}

  PairResult operator()(std::size_t index) {
    const PolarConfig& config = *core_.config;
    if (config.triangulate_dis_switch != 0 || config.triangulate_residual_switch != 0) {
      const PairStatus status = triangulate();
      if (status != 0 && config.discalsave) return {PairOutcome::kEndRun, keepError(status)};
      if (status != 0) return giveUp();
    }
    if (config.dy_bias_switch != 0 || config.foursixmethod_swithch != 0) {
      rectify();
      save(index);
      if (config.dy_bias_switch != 0 && rowDisparity() != 0) return giveUp();
      if ((config.foursixmethod_swithch != 0 || config.allpointssavecsv_swithch != 0) && pointCloud() != 0)
        return giveUp();
    }
    if (config.spaceRms_switch && boardCheck() != 0) return giveUp();
    return kPairFinished;
  }

 private:
  const char* target() const { return arguments_.targetConfigPath.c_str(); }
  bool isPoly() const { return arguments_.type == 3; }
  EvaluationCameras cameras() const { return {core_.left.K, core_.right.K, core_.R, core_.T}; }

  std::int32_t keepError(PairStatus status) {
    core_.errorText = evaluator_.errorText;
    return status;
  }
  PairResult giveUp() {
    core_.errorText = evaluator_.errorText;
    return {PairOutcome::kGivenUp, 0};
  }

  PairStatus triangulate() {
    if (isPoly()) {
      console::line("CalTriangulateRepPOLY");
      return evaluator_.CalTriangulateRepPOLY(arguments_.evalu_model, target(), core_.left_image, core_.right_image,
                                              cameras(), core_.left_camera, core_.right_camera);
    }
    console::line("CalTriangulateRepBrown");
    return evaluator_.CalTriangulateRepBrown(arguments_.evalu_model, target(), core_.left_image, core_.right_image,
                                             cameras());
  }

  // Without a model for `type` the outputs stay as they are given, so they are given empty: each pair then goes on
  // unwarped.
  void rectify() {
    core_.left_rectified.release();
    core_.right_rectified.release();
    RectifyPair({core_.config->f_scale, core_.config->x_y, core_.left_camera, core_.right_camera}, core_.Q, rectified_,
                core_.left_image, core_.right_image,
                {core_.left.K, core_.left.D, core_.right.K, core_.right.D, core_.R, core_.T}, core_.left_rectified,
                core_.right_rectified, arguments_.type);
  }

  void save(std::size_t index) const {
    if (core_.config->result_folder.empty() || result_dir_.empty()) return;
    const std::string name = files::kPathSeparator + std::to_string(index);
    files::writeImage(result_dir_ + name + ".png", rectified_.at(2));
    files::writeImage(result_dir_ + "_left" + name + "_left.png", rectified_.at(0));
    files::writeImage(result_dir_ + "_right" + name + "_right.png", rectified_.at(1));
  }

  // The compensation stays off for the rest of the run, in the triangulation of later pairs, too: a set whose pairs are
  // rectified is measured with it in its first pair only. That is meant.
  PairStatus rowDisparity() {
    evaluator_.eccentricity = false;
    float variance_x = 0.0F;
    float variance_y = 0.0F;
    return evaluator_.CheckRowDisparity(arguments_.evalu_model, target(), rectified_.at(0), rectified_.at(1),
                                        variance_x, variance_y);
  }
  PairStatus pointCloud() {
    evaluator_.eccentricity = false;
    std::vector<cv::Point2f> left_points;
    std::vector<cv::Point2f> right_points;
    std::vector<CloudPoint> cloud;
    return evaluator_.CheckPointCloud(arguments_.evalu_model, target(), rectified_.at(0), rectified_.at(1), core_.Q,
                                      left_points, right_points, cloud);
  }

  PairStatus boardCheck() {
    if (isPoly()) {
      console::line("distortion model: POLY");
      return evaluator_.CheckBoardPoly(arguments_.evalu_model, target(), core_.left_image, core_.right_image, cameras(),
                                       core_.left_camera, core_.right_camera);
    }
    console::line("distortion model: Brown");
    return evaluator_.CheckBoardBrown(arguments_.evalu_model, target(), core_.left_image, core_.right_image, cameras());
  }

  PolarCore& core_;
  const RunArguments& arguments_;
  PairEvaluator& evaluator_;
  std::string result_dir_;
  std::vector<cv::Mat> rectified_;
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
  if (!isStereoSet(*this, arguments.images)) return polar_status::kImages;
  const auto start = std::chrono::steady_clock::now();

  std::string result_dir;
  if (!config->result_folder.empty() && config->savepolarline != 0) {
    result_dir = config->result_folder + files::kPathSeparator + "result";
    if (!makeResultFolders(result_dir)) {
      errorText = "Make result file error!";
      console::line(errorText);
      return polar_status::kResultFolder;
    }
  }
  std::ofstream summary = files::openOutput(freeSummaryPath(*config, arguments.evaluation));
  writeSummaryHeader(summary, *config, true);

  if (!loadRunCameras(*this, calib, arguments.type)) {
    errorText = "Read Poly Params Error!";
    return polar_status::kPolyTables;
  }
  if (!reportProgress(*this, arguments.progress, 0.003F)) return polar_status::kStoppedByCallback;

  PairEvaluator evaluator = makeEvaluator(*this);
  const WalkRules rules{.counts_given_up = true, .releases_images = true, .writes_every_row = false};
  return walkPairs(*this, arguments, evaluator, summary, start, rules,
                   ImageSetPair(*this, arguments, evaluator, result_dir));
}
