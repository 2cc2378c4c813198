#include "tools/accuracy/Sight.h"

#include <algorithm>
#include <iostream>
#include <opencv2/imgproc.hpp>
#include <sstream>

#include "Tallowfen/src/RingTarget.h"
#include "tools/accuracy/CramerRao.h"
#include "tools/scene/BoardMarks.h"
#include "tools/scene/CalibrationNumbers.h"
#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/Irradiance.h"
#include "tools/scene/Lens.h"
#include "tools/scene/Random.h"
#include "tools/scene/Render.h"
#include "tools/scene/Sensor.h"
#include "tools/scene/TargetText.h"

namespace accuracy {
namespace {

/// Swallows the library's console lines.
class Quiet {
 public:
  Quiet() : out_(std::cout.rdbuf(text_.rdbuf())) {}
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;
  ~Quiet() { std::cout.rdbuf(out_); }

 private:
  std::ostringstream text_;
  std::streambuf* out_;
};

TrueDot trueDot(const Sight& sight, const scene::Mark& mark) {
  const scene::Board& board = sight.scene.board;
  const scene::Point3 centre = scene::gridPoint(board, mark.column, mark.row);
  const double radius = mark.radii.outer * board.step;
  const auto seen = scene::project(sight.camera, scene::transformed(sight.camera_from_board, centre));
  const scene::ImagedEllipse e = scene::imagedEllipse(sight.camera, sight.camera_from_board, centre, radius);
  TrueDot dot;
  dot.id = mark.id;
  dot.marker = mark.marker;
  dot.centre = seen.value_or(scene::Point2{});
  dot.ellipse = e.centre;
  dot.radius = std::sqrt(e.semi_a * e.semi_b);
  const double room = e.semi_a + 3.0;
  dot.measurable = mark.drawn && seen && e.centre.x > room && e.centre.y > room &&
                   e.centre.x < sight.camera.width - 1.0 - room && e.centre.y < sight.camera.height - 1.0 - room;
  dot.bound = cramerRaoBound(sight, mark);
  return dot;
}

/// The picture of a lens that blurs before the pixels see it: rendered finer, blurred, and binned. The renderer's own
/// blurs what the pixels have sampled.
cv::Mat opticalPicture(const Sight& sight, std::uint64_t seed) {
  constexpr int kFine = 4;
  const scene::Optics& optics = sight.scene.optics;
  scene::Camera fine = sight.camera;
  fine.width *= kFine;
  fine.height *= kFine;
  fine.fx *= kFine;
  fine.fy *= kFine;
  fine.cx = (fine.cx + 0.5) * kFine - 0.5;
  fine.cy = (fine.cy + 0.5) * kFine - 0.5;
  const cv::Mat sharp = scene::renderIrradiance(fine, sight.scene.board, sight.camera_from_board, optics);
  cv::Mat binned;
  cv::resize(scene::blurred(sharp, optics.blur_sigma * kFine), binned, {sight.camera.width, sight.camera.height}, 0, 0,
             cv::INTER_AREA);
  return scene::digitised(scene::illuminated(binned, optics), optics, seed);
}

cv::Point3d boardPoint(const scene::Board& board, int id) {
  const scene::Point3 point = scene::gridPoint(board, id % board.cols, id / board.cols);
  return {point.x, point.y, point.z};
}

}  // namespace

Sight sightOf(const scene::Scene& scene, std::size_t pose, bool right, bool optical) {
  Sight sight;
  sight.scene = scene;
  sight.camera = right ? scene.rig.right : scene.rig.left;
  sight.camera_from_board = scene.left_from_board.at(pose);
  if (right) sight.camera_from_board = scene::rightFromBoard(scene.rig, sight.camera_from_board);
  const std::uint64_t seed = scene.seed * 1000 + 2 * pose + (right ? 1 : 0);
  sight.picture = optical ? opticalPicture(sight, seed)
                          : scene::renderImage(sight.camera, scene.board, sight.camera_from_board, scene.optics, seed);
  for (const scene::Mark& mark : scene::marksOf(scene.board)) sight.dots.push_back(trueDot(sight, mark));
  return sight;
}

CalibratedCamera calibratedCamera(const scene::Camera& camera) {
  StereoCalibParams calib;
  CameraCalib& numbers = calib.left;
  numbers.width = static_cast<std::uint32_t>(camera.width);
  numbers.height = static_cast<std::uint32_t>(camera.height);
  numbers.intrinsics = scene::intrinsicsOf(camera);
  if (camera.model == scene::LensModel::kPoly) {
    numbers.poly_nx = static_cast<std::uint8_t>(camera.table.columns);
    numbers.poly_ny = static_cast<std::uint8_t>(camera.table.rows);
    std::copy(camera.table.x.begin(), camera.table.x.end(), numbers.poly_x.begin());
    std::copy(camera.table.y.begin(), camera.table.y.end(), numbers.poly_y.begin());
  }
  LensModel model = LensModel::kBrownEight;
  if (camera.model == scene::LensModel::kFisheye) model = LensModel::kFisheye;
  if (camera.model == scene::LensModel::kPoly) model = LensModel::kPoly;
  return {calib, 0, model};
}

std::vector<DotPlace> detectedPlaces(const Sight& sight) {
  const Quiet quiet;
  kestrune::RingTarget target;
  kestrune::RingTarget::Points points, unidentified;
  if (!target.loadConfig(scene::targetIni(sight.scene))) return {};
  cv::Mat grey = sight.picture;
  if (grey.channels() == 3) cv::cvtColor(grey, grey, cv::COLOR_BGR2GRAY);
  if (grey.depth() != CV_8U) grey.convertTo(grey, CV_8U, 255.0 / (std::ldexp(1.0, sight.scene.optics.bits) - 1.0));
  if (!target.detect(grey, points, unidentified, cv::Mat())) return {};
  std::vector<DotPlace> places;
  const int count = sight.scene.board.rows * sight.scene.board.cols;
  for (const auto& point : points) {
    if (point.id < 0 || point.id >= count) continue;
    places.push_back({point.id, {point.x, point.y}, boardPoint(sight.scene.board, point.id)});
  }
  return places;
}

std::vector<DotPlace> nearTruePlaces(const Sight& sight, double off) {
  scene::Random random(sight.scene.seed + 17);
  std::vector<DotPlace> places;
  for (const TrueDot& dot : sight.dots) {
    if (!dot.measurable) continue;
    const auto spread = [&] { return off * std::clamp(0.5 * random.normal(), -1.0, 1.0); };
    const double dx = spread(), dy = spread();
    places.push_back({dot.id, {dot.centre.x + dx, dot.centre.y + dy}, boardPoint(sight.scene.board, dot.id)});
  }
  return places;
}

}  // namespace accuracy
