#include "bench/PairStage.h"

#include <PolarLinePrecision.h>
#include <fmt/format.h>

#include <memory>
#include <opencv2/imgproc.hpp>
#include <stdexcept>
#include <utility>

#include "Tallowfen/src/RingTarget.h"
#include "bench/Scratch.h"
#include "camera/RectificationMaps.h"
#include "camera/RectifiedPictures.h"
#include "input/CalibrationConversion.h"
#include "input/PolarConfigReader.h"
#include "platform/Files.h"
#include "polar/measure/ImageNormalisation.h"
#include "polar/results/RecordExport.h"
#include "polar/run/RunCameras.h"
#include "tools/scene/PolarText.h"
#include "tools/scene/Presets.h"
#include "tools/scene/TargetText.h"
#include "tools/scene/WriteScene.h"

namespace {

const std::string kNoFrames = "\nframe_work: 0";

void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error("bench: " + what);
}

RectificationSettings settingsOf(const PolarCore& core) {
  return {core.config->f_scale, core.config->x_y, core.left_camera, core.right_camera};
}

StereoMatrices matricesOf(const PolarCore& core) {
  return {core.left.K, core.left.D, core.right.K, core.right.D, core.R, core.T};
}

/// Of this noise no dot of twenty pairs stands out so far from its board that the run ends there.
constexpr unsigned kQuietSeed = 4;

scene::Scene sceneOf(const std::string& preset, int pairs) {
  scene::PresetOptions options;
  options.pairs = pairs;
  options.seed = kQuietSeed;
  return *scene::makePreset(preset, options);
}

cv::Mat warpedBy(const cv::Mat& image, const WarpMaps& maps) {
  cv::Mat warped;
  cv::remap(image, warped, maps.columns, maps.rows, cv::INTER_LINEAR, cv::BORDER_CONSTANT, cv::Scalar(0));
  return drawablePicture(warped);
}

std::shared_ptr<const PolarConfig> configOf(const std::string& text, const std::string& folder) {
  auto config = std::make_shared<PolarConfig>();
  require(ReadPolarConfig(text, folder, *config) == 0, "a rendered set's configuration is refused");
  return config;
}

}  // namespace

PairStage::PairStage(const std::string& preset, int pairs) : PairStage(sceneOf(preset, pairs)) {}

PairStage::PairStage(const scene::Scene& scene)
    : polar_(scene::polarText(scene) + kNoFrames), target_(scene::targetIni(scene)) {
  const Scratch scratch;
  scene::writeScene(scene, scratch.path());
  ReadCalibParams(scratch.path() + "/calib.bin", &calibration_);
  ReadBoardGTFromTxt(scratch.path() + "/board_gt.txt", &calibration_.boardPoints);
  require(ReadCalibImagelist(scratch.path() + "/list.txt", &images_) == 0, "a rendered set has no pictures");

  StereoCalibParams calib;
  importCalibration(calibration_, calib);
  core_.config = configOf(polar_, "");
  core_.boardPoints = calibration_.boardPoints;
  require(loadRunCameras(core_, calib), "a rendered set has no cameras");
  raw_ = {
      0, target_.c_str(), images_.at(0).at(0), images_.at(1).at(0), {core_.left.K, core_.right.K, core_.R, core_.T}};
  buildMaps();
  warp();
  measure();
}

void PairStage::wholeRun(const std::string& folder) {
  std::vector<PolarResultRecord> records;
  const int status = CalPolarLinePrecisionOutMat(polar_.c_str(), target_.c_str(), calibration_, images_, &records,
                                                 nullptr, folder.empty() ? nullptr : folder.c_str());
  require(
      status == 0 && records.size() == pairs(),
      fmt::format("the run of a rendered set ends with status {} and {} of {} pairs", status, records.size(), pairs()));
}

void PairStage::detect(std::size_t picture) {
  const std::array<const cv::Mat*, 4> pictures = {&raw_.left_image, &raw_.right_image, &rectified_.left_image,
                                                  &rectified_.right_image};
  kestrune::RingTarget target;
  target.loadConfig(target_);
  kestrune::RingTarget::Points points, unidentified;
  require(target.detect(normaliseTo8Bit(*pictures.at(picture)), points, unidentified, cv::Mat()),
          "a rendered board is not found");
}

void PairStage::buildMaps() {
  maps_ = rectificationMaps(settingsOf(core_), matricesOf(core_), raw_.left_image.size(), core_.lensModel().value());
  core_.Q = maps_.Q;
}

void PairStage::warp() {
  rectified_ = {0, target_.c_str(), warpedBy(raw_.left_image, maps_.left), warpedBy(raw_.right_image, maps_.right)};
}

void PairStage::measure() {
  raw_points_ = {};
  rectified_points_ = {};
  PairEvaluator evaluator = makeEvaluator(core_);
  require(evaluator.measure(raw_, raw_points_) == 0, "a rendered pair is not measured");
  require(evaluator.measure(rectified_, rectified_points_) == 0, "a rectified pair is not measured");
  canvas_ = evaluator.figures.detect_canvas;
}

PairEvaluator PairStage::evaluator(const MeasuredPair& points, const std::string& folder) const {
  PairEvaluator evaluator = makeEvaluator(core_);
  evaluator.result_folder = folder;
  evaluator.measurement = [&points](std::int32_t /*evalu_model*/, MeasuredPair& pair) {
    pair = points;
    return 0;
  };
  return evaluator;
}

std::vector<Contestant> PairStage::evaluations(const std::string& folder) {
  const auto triangulation = [this, folder] {
    PairEvaluator on_points = evaluator(raw_points_, folder);
    require((isPoly() ? on_points.CalTriangulateRepPOLY(raw_, core_.left_camera, core_.right_camera)
                      : on_points.CalTriangulateRepBrown(raw_)) == 0,
            "the triangulation fails");
    triangulated_ = std::move(on_points.figures);
  };
  const auto rows = [this, folder] {
    float variance_x = 0.0F, variance_y = 0.0F;
    require(evaluator(rectified_points_, folder).CheckRowDisparity(rectified_, variance_x, variance_y) == 0,
            "the row differences fail");
  };
  const auto cloud = [this, folder] {
    std::vector<cv::Point2f> left, right;
    std::vector<CloudPoint> points;
    require(evaluator(rectified_points_, folder).CheckPointCloud(rectified_, core_.Q, left, right, points) == 0,
            "the point cloud fails");
  };
  const auto board = [this, folder] {
    PairEvaluator on_points = evaluator(raw_points_, folder);
    require((isPoly() ? on_points.CheckBoardPoly(raw_, core_.left_camera, core_.right_camera)
                      : on_points.CheckBoardBrown(raw_)) == 0,
            "the board check fails");
  };
  return {{"triangulation and distances", triangulation},
          {"row differences", rows},
          {"point cloud", cloud},
          {"board check", board}};
}

std::vector<PolarResultRecord> PairStage::record() {
  triangulated_.detect_canvas = canvas_;
  std::vector<PairFigures> figures(1);
  FillResultRecord(triangulated_, figures.front());
  std::vector<PolarResultRecord> records;
  ExportResults(std::move(figures), records);
  return records;
}

void PairStage::savePictures(const std::string& folder) const {
  files::writeImage(folder + "/pair.png", polarLineCanvas(rectified_.left_image, rectified_.right_image));
  files::writeImage(folder + "/left.png", rectified_.left_image);
  files::writeImage(folder + "/right.png", rectified_.right_image);
}

double PairStage::pictureBytes() const {
  double bytes = 0.0;
  for (const std::vector<cv::Mat>& side : images_) {
    for (const cv::Mat& image : side) bytes += static_cast<double>(image.total() * image.elemSize());
  }
  return bytes;
}
