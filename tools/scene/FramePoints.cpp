#include "tools/scene/FramePoints.h"

#include "tools/scene/BoardMarks.h"
#include "tools/scene/Truth.h"

namespace scene {
namespace {

/// Expected pixels are read off a drawing, not measured: a tenth of a pixel is what they carry.
Point2 toTenth(Point2 pixel) { return {std::round(pixel.x * 10.0) / 10.0, std::round(pixel.y * 10.0) / 10.0}; }

}  // namespace

std::vector<FramePoint> framePoints(const Scene& scene) {
  std::vector<FramePoint> points;
  if (scene.settings.frame_ids.empty()) return points;
  const PairTruth truth = pairTruth(scene, 0);
  for (const int id : scene.settings.frame_ids) {
    const DotTruth& dot = truth.dots.at(static_cast<std::size_t>(id));
    points.push_back({static_cast<int>(points.size()) + 1,
                      gridPoint(scene.board, id % scene.board.cols, id / scene.board.cols),
                      toTenth(dot.ellipse_left.centre), toTenth(dot.ellipse_right.centre)});
  }
  return points;
}

}  // namespace scene
