#include "tools/scene/SceneChecks.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "polarline/errors.h"
#include "tools/scene/BoardMarks.h"

namespace scene {
namespace {

/// What a key was found to be, and what it had to be.
void demand(bool holds, const std::string& place, const std::string& key, const std::string& problem) {
  if (!holds) throw polarline::InputError(place + ": " + key, problem);
}

void checkBoard(const Board& board, const std::string& place) {
  for (const Marker& marker : markersOf(board)) {
    const bool on_board =
        marker.column >= 0 && marker.row >= 0 && marker.column < board.cols && marker.row < board.rows;
    demand(on_board, place, "board",
           fmt::format("found a marker in row {}, column {}, wanted rectangles within the {} x {} dots", marker.row,
                       marker.column, board.rows, board.cols));
  }
}

/// What `focal`, `width` and `height` made of the numbers of a camera.
void checkCamera(const Camera& camera, const std::string& place, const std::string& key) {
  const double shorter = std::min(camera.fx, camera.fy);
  const double longer = std::max(camera.fx, camera.fy);
  demand(shorter >= 1.0 && longer <= 1e6, place, key,
         fmt::format("found focal lengths of {} and {}, wanted 1 to 1000000", camera.fx, camera.fy));
  demand(std::max(std::abs(camera.cx), std::abs(camera.cy)) <= 1e5, place, key,
         fmt::format("found the principal point ({}, {}), wanted one within 100000 pixels", camera.cx, camera.cy));
}

void checkRig(const StereoRig& rig, const std::string& place, const std::string& key) {
  checkCamera(rig.left, place, key + ".left");
  checkCamera(rig.right, place, key + ".right");
  const Point3& t = rig.right_from_left_translation;
  demand(std::abs(t.x) > std::abs(t.y), place, key + ".translation",
         fmt::format("found [{}, {}, {}], wanted a right camera that stands beside the left one", t.x, t.y, t.z));
  const PolyTable& table = rig.left.table;
  demand(table.columns * table.rows <= 25, place, key + ".cells",
         fmt::format("found {} x {} cells, wanted at most 25", table.columns, table.rows));
}

bool isRectified(const StereoRig& rig) {
  const Camera& l = rig.left;
  const Camera& r = rig.right;
  const auto& [rx, ry, rz] = rig.right_from_left_angles;
  const Point3& t = rig.right_from_left_translation;
  const bool alike = l.fx == r.fx && l.fy == r.fy && l.cy == r.cy && l.model == LensModel::kBrown;
  const bool without_lens = l.lens == std::array<double, 8>{} && r.lens == l.lens;
  return alike && without_lens && rx == 0.0 && ry == 0.0 && rz == 0.0 && t.y == 0.0 && t.z == 0.0;
}

/// The board's outermost dots.
std::vector<Point3> corners(const Board& board) {
  return {gridPoint(board, 0, 0), gridPoint(board, board.cols - 1, 0), gridPoint(board, 0, board.rows - 1),
          gridPoint(board, board.cols - 1, board.rows - 1)};
}

bool inFront(const Scene& scene, const Pose& left_from_board) {
  const Pose right_from_board = rightFromBoard(scene.rig, left_from_board);
  // Nearer than that the outline of a mark, up to two steps wide, may reach behind the camera.
  const double nearest = 3.0 * std::max(scene.board.step, rowStep(scene.board));
  const auto far_enough = [&](const Pose& pose, const Point3& corner) { return transformed(pose, corner).z > nearest; };
  return std::ranges::all_of(corners(scene.board), [&](const Point3& corner) {
    return far_enough(left_from_board, corner) && far_enough(right_from_board, corner);
  });
}

}  // namespace

void checkRecipe(const SceneRecipe& recipe, const std::string& place) {
  checkBoard(recipe.board, place);
  checkRig(recipe.rig, place, "rig");
  if (recipe.given) checkRig(*recipe.given, place, "given");
  const StereoRig& given = recipe.given.value_or(recipe.rig);
  demand(given.left.model == recipe.rig.left.model && given.left.width == recipe.rig.left.width &&
             given.left.height == recipe.rig.left.height,
         place, "given", "found another lens model or image size than the rig's, wanted the same");
  demand(!recipe.given || recipe.misalignment == Misalignment{}, place, "misalignment",
         "found beside \"given\", wanted one of the two: each says how the calibration is wrong");
  demand(!recipe.settings.rectified || isRectified(given), place, "settings.rectified",
         "found true, wanted cameras without lens and turn, of the same focal lengths and principal row, the right "
         "one moved along x only");
  demand(recipe.optics.channels != 2, place, "optics.channels", "found 2, wanted 1 or 3");
  for (const int id : recipe.settings.frame_ids) {
    const int last = recipe.board.rows * recipe.board.cols - 1;
    demand(id <= last, place, "settings.frame_ids", fmt::format("found {}, wanted ids from 0 to {}", id, last));
  }
}

void checkPoses(const SceneRecipe& recipe, const Scene& scene, const std::string& place) {
  for (std::size_t index = 0; index < recipe.poses.size(); ++index) {
    const std::string key = fmt::format("poses[{}]", index);
    const Pose& pose = scene.left_from_board[index];
    demand(inFront(scene, pose), place, key, "found the board beside or behind a camera, wanted it in front of both");
    if (!std::holds_alternative<PoseWish>(recipe.poses[index])) continue;
    const double reach = reachOf(scene.rig, scene.board, pose);
    demand(reach <= 1.0, place, key,
           fmt::format("found a board that reaches to {:.3f} of the half image, wanted a pose that both images hold",
                       reach));
  }
}

}  // namespace scene
