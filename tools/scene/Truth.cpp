#include "tools/scene/Truth.h"

#include "tools/scene/BoardMarks.h"
#include "tools/scene/IdealRectification.h"
#include "tools/scene/Lens.h"
#include "tools/scene/RectifiedCentre.h"

namespace scene {
namespace {

bool inside(const Camera& camera, const ImagedEllipse& e) {
  return e.centre.x - e.semi_a > 0.0 && e.centre.y - e.semi_a > 0.0 && e.centre.x + e.semi_a < camera.width - 1.0 &&
         e.centre.y + e.semi_a < camera.height - 1.0;
}

/// The poses of the board in the cameras' frames, and the turns of the given calibration.
struct Views {
  Pose left, right;
  IdealRectification turn;
};

Views viewsOf(const Scene& scene, const Pose& left_from_board) {
  return {left_from_board, rightFromBoard(scene.rig, left_from_board), idealRectification(scene.given)};
}

DotTruth dotTruth(const Scene& scene, const Views& views, double focal, const Mark& mark) {
  const Point3 centre = gridPoint(scene.board, mark.column, mark.row);
  const double radius = mark.radii.outer * scene.board.step;
  DotTruth dot;
  dot.id = mark.id;
  dot.drawn = mark.drawn;
  dot.point_left = transformed(views.left, centre);
  dot.pixel_left = project(scene.rig.left, dot.point_left).value_or(Point2{});
  dot.pixel_right = project(scene.rig.right, transformed(views.right, centre)).value_or(Point2{});
  dot.ellipse_left = imagedEllipse(scene.rig.left, views.left, centre, radius);
  dot.ellipse_right = imagedEllipse(scene.rig.right, views.right, centre, radius);
  dot.in_view = inside(scene.rig.left, dot.ellipse_left) && inside(scene.rig.right, dot.ellipse_right);
  dot.rectified_left = rectifiedCentre({scene.rig.left, scene.given.left, views.turn.left}, views.left, centre, radius);
  dot.rectified_right =
      rectifiedCentre({scene.rig.right, scene.given.right, views.turn.right}, views.right, centre, radius);
  dot.row_difference = focal * (dot.rectified_left.y - dot.rectified_right.y);
  return dot;
}

}  // namespace

PairTruth pairTruth(const Scene& scene, std::size_t index) {
  PairTruth truth;
  truth.left_from_board = scene.left_from_board.at(index);
  truth.rectified_focal = rectifiedFocal(scene.given, scene.settings.f_scale);
  const Views views = viewsOf(scene, truth.left_from_board);
  for (const Mark& mark : marksOf(scene.board))
    truth.dots.push_back(dotTruth(scene, views, truth.rectified_focal, mark));
  return truth;
}

}  // namespace scene
