#include "tools/glossary/NumberedBoard.h"

#include <set>
#include <stdexcept>

#include "tools/scene/Lens.h"
#include "tools/scene/Render.h"
#include "tools/scene/StereoRig.h"
#include "tools/scene/TargetText.h"

namespace {

/// Wide enough for the detection of ring boards, which middle resolutions do not have.
scene::Camera frontCamera() {
  scene::Camera camera;
  camera.width = 2048;
  camera.height = 1520;
  camera.fx = camera.fy = 4096.0;
  camera.cx = 1023.5;
  camera.cy = 759.5;
  return camera;
}

/// The board's middle before the camera, with so much of a turn that the picture does not look like a drawing.
scene::Pose posed(const scene::Camera& camera, const scene::Board& board) {
  constexpr double kMarginSteps = 1.7;
  const double width = (board.cols - 1 + 2.0 * kMarginSteps) * board.step;
  const scene::Matrix3 rotation = scene::rotationFromAngles({0.05, -0.06, 0.012});
  const scene::Point3 middle{(board.cols - 1) * board.step / 2.0, (board.rows - 1) * scene::rowStep(board) / 2.0, 0.0};
  const scene::Point3 ahead{0.0, 0.0, camera.fx * width / camera.width};
  return {rotation, ahead - rotation * middle};
}

scene::Optics clearLight() {
  scene::Optics optics;
  optics.paper = 238.0;
  optics.ink = 51.0;
  optics.surround = 204.0;
  optics.texture = optics.vignette = optics.gradient_x = optics.gradient_y = 0.0;
  optics.read_noise = optics.shot_noise = 0.0;
  return optics;
}

bool isComplete(const kestrune::RingTarget::Ellipses& dots, const scene::Board& board) {
  std::set<std::int32_t> ids;
  for (const auto& dot : dots) ids.insert(dot.id);
  const int places = board.rows * board.cols;
  return ids.size() == static_cast<std::size_t>(places) && *ids.begin() == 0 && *ids.rbegin() == places - 1;
}

}  // namespace

NumberedBoard numberedBoard(const scene::Board& board) {
  const scene::Camera camera = frontCamera();
  scene::Scene told;
  told.board = board;
  kestrune::RingTarget target;
  target.loadConfig(scene::targetIni(told));

  const cv::Mat image = scene::renderImage(camera, board, posed(camera, board), clearLight(), 1);
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  target.detect(image, points, unidentified, cv::Mat());
  if (!isComplete(target.identifiedEllipses(), board)) throw std::runtime_error("the board is not numbered as a whole");
  return {board, image, target.identifiedEllipses(), target.centreIndex()};
}

cv::Point2d pixelOfPlace(const scene::Board& board, double column, double row) {
  const scene::Camera camera = frontCamera();
  const scene::Point3 point_board{column * board.step, row * scene::rowStep(board), 0.0};
  const scene::Point2 pixel = scene::project(camera, scene::transformed(posed(camera, board), point_board)).value();
  return {pixel.x, pixel.y};
}
