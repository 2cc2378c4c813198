#include "polarline/refine.h"

#include <fmt/format.h>

#include <sstream>

#include "camera/CalibratedCamera.h"
#include "camera/LensModel.h"
#include "check/picture/TargetFile.h"
#include "platform/Console.h"
#include "polarline/errors.h"
#include "refine/RefineDots.h"

namespace polarline {
namespace {

CalibratedCamera cameraOf(const Camera& camera, int type) {
  const auto model = lensModelOf(type);
  if (!model || *model == LensModel::kPoly)
    throw InputError("type", fmt::format("{} was found; 0, 1 or 2 was wanted", type));
  StereoCalibParams calib;
  calib.left.intrinsics = {camera.fx,   camera.fy,   camera.cx,   camera.cy,   camera.k[0], camera.k[1],
                           camera.k[2], camera.k[3], camera.k[4], camera.k[5], camera.p1,   camera.p2};
  return {calib, 0, *model};
}

}  // namespace

std::vector<RefinedDot> refine(const cv::Mat& image, const Detection& detection, const std::string& target,
                               const Camera& camera, int type) {
  if (image.empty() || image.size() != detection.size)
    throw InputError("image", fmt::format("{} x {} was found; {} x {}, as the detection has it, was wanted", image.cols,
                                          image.rows, detection.size.width, detection.size.height));
  const CalibratedCamera lens = cameraOf(camera, type);
  std::ostringstream unread;  // What the library prints is not for callers of this function.
  const console::Redirection quiet(unread, unread);
  kestrune::RingTarget board;
  loadTarget(target, board);
  const auto& model = board.boardModel();
  std::vector<DotPlace> places;
  places.reserve(detection.dots.size());
  for (const Dot& dot : detection.dots) {
    DotPlace place{dot.id, {dot.x, dot.y}, {}};
    const auto entry = static_cast<std::size_t>(dot.id);
    if (dot.id >= 0 && entry < model.size()) place.board = model[entry].position;
    places.push_back(place);
  }
  return refineDots(image, places, lens).dots;
}

}  // namespace polarline
