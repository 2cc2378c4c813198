#pragma once

#include <vector>

#include "tools/scene/Scene.h"

namespace scene {

/// A fixed point of a frame run: its place on the board and the pixels where it is expected, rounded to a tenth.
struct FramePoint {
  int id = 0;  ///< Counted from 1, its place in the list.
  Point3 point_board;
  Point2 expected_left;
  Point2 expected_right;
};

/// The scene's fixed points as the first pair shows them; empty when the scene has none.
std::vector<FramePoint> framePoints(const Scene& scene);

}  // namespace scene
