#include "tools/scene/PoseFit.h"

#include <algorithm>
#include <vector>

#include "tools/scene/Lens.h"

namespace scene {
namespace {

constexpr int kSteps = 60;

/// Points along the paper's border, relative to the board's centre.
std::vector<Point3> borderOf(const Board& board) {
  const double half_w = ((board.cols - 1) / 2.0 + board.margin) * board.step;
  const double half_h = ((board.rows - 1) / 2.0 + board.margin) * rowStep(board);
  std::vector<Point3> border;
  for (int k = -8; k <= 8; ++k) {
    const double s = k / 8.0;
    border.insert(
        border.end(),
        {{s * half_w, -half_h, 0}, {s * half_w, half_h, 0}, {-half_w, s * half_h, 0}, {half_w, s * half_h, 0}});
  }
  return border;
}

/// Where a camera sees the border, in half image sizes from the image's centre.
struct View {
  double left = 0.0, right = 0.0, top = 0.0, bottom = 0.0;
  [[nodiscard]] double reach() const { return std::max({-left, right, -top, bottom}); }
};

View viewOf(const Camera& camera, const std::vector<Point3>& border_camera) {
  View view;
  for (const Point3& point : border_camera) {
    // A point behind the camera counts as far outside: the fit then steps back.
    const Point2 pixel = project(camera, point).value_or(Point2{10.0 * camera.width, 10.0 * camera.height});
    const double x = (2.0 * pixel.x + 1.0) / camera.width - 1.0;
    const double y = (2.0 * pixel.y + 1.0) / camera.height - 1.0;
    view = {std::min(view.left, x), std::max(view.right, x), std::min(view.top, y), std::max(view.bottom, y)};
  }
  return view;
}

struct BoardViews {
  View left, right;
};

/// `border` is relative to the board's centre, `centre` in the left camera's frame.
BoardViews boardViews(const StereoRig& rig, const std::vector<Point3>& border, const Matrix3& rotation,
                      const Point3& centre) {
  std::vector<Point3> border_left, border_right;
  for (const Point3& point : border) {
    border_left.push_back(rotation * point + centre);
    border_right.push_back(rightFromLeft(rig, border_left.back()));
  }
  return {viewOf(rig.left, border_left), viewOf(rig.right, border_right)};
}

Point3 firstToCentre(const Board& board) {
  return {(board.cols - 1) / 2.0 * board.step, (board.rows - 1) / 2.0 * rowStep(board), 0.0};
}

}  // namespace

Pose fitPose(const StereoRig& rig, const Board& board, const PoseWish& wish) {
  const Matrix3 rotation = rotationFromAngles({radians(wish.tilt_x), radians(wish.tilt_y), radians(wish.roll)});
  const std::vector<Point3> border = borderOf(board);
  Point3 centre{0.0, 0.0, 4.0 * board.step * std::max(board.cols, board.rows)};
  for (int step = 0; step < kSteps; ++step) {
    const auto [left, right] = boardViews(rig, border, rotation, centre);
    const double off_x = (left.left + left.right + right.left + right.right) / 4.0;
    const double off_y = (left.top + left.bottom + right.top + right.bottom) / 4.0;
    centre.x -= off_x * rig.left.width / 2.0 * centre.z / rig.left.fx;
    centre.y -= off_y * rig.left.height / 2.0 * centre.z / rig.left.fy;
    centre.z *= std::max(left.reach(), right.reach()) / wish.fill;
  }
  return {rotation, centre - rotation * firstToCentre(board)};
}

double reachOf(const StereoRig& rig, const Board& board, const Pose& left_from_board) {
  const Point3 centre = transformed(left_from_board, firstToCentre(board));
  const BoardViews views = boardViews(rig, borderOf(board), left_from_board.rotation, centre);
  return std::max(views.left.reach(), views.right.reach());
}

}  // namespace scene
