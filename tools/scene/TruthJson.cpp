#include "tools/scene/TruthJson.h"

#include <nlohmann/json.hpp>

#include "tools/scene/BoardMarks.h"
#include "tools/scene/CalibrationJson.h"
#include "tools/scene/Reachable.h"
#include "tools/scene/TrueFigures.h"
#include "tools/scene/Truth.h"

namespace scene {
namespace {

using Json = nlohmann::ordered_json;

Json boardJson(const Board& board) {
  Json markers = Json::array();
  for (const Marker& m : markersOf(board)) {
    markers.push_back({{"id", m.row * board.cols + m.column},
                       {"col", m.column},
                       {"row", m.row},
                       {"outer", m.radii.outer * board.step},
                       {"hollow", m.radii.hollow * board.step},
                       {"core", m.radii.core * board.step}});
  }
  const ReachableIds ids = reachableIds(board);
  return {{"rows", board.rows},
          {"cols", board.cols},
          {"step", board.step},
          {"step_y", rowStep(board)},
          {"dot_radius", board.dot_radius * board.step},
          {"markers", markers},
          {"expected", ids.reached.size()},
          {"made_up", ids.made_up}};
}

Json opticsJson(const Optics& o) {
  return {{"paper", o.paper},
          {"ink", o.ink},
          {"surround", o.surround},
          {"texture", o.texture},
          {"blur_sigma", o.blur_sigma},
          {"vignette", o.vignette},
          {"gradient", {o.gradient_x, o.gradient_y}},
          {"read_noise", o.read_noise},
          {"shot_noise", o.shot_noise},
          {"bits", o.bits},
          {"channels", o.channels},
          {"supersampling", o.supersampling}};
}

Json poseJson(const Pose& pose) {
  return {{"R", pose.rotation.values}, {"t", {pose.translation.x, pose.translation.y, pose.translation.z}}};
}

Json dotJson(const DotTruth& d) {
  const auto ellipse = [](const ImagedEllipse& e) { return Json{e.centre.x, e.centre.y, e.semi_a, e.semi_b, e.angle}; };
  return {d.id,
          d.drawn,
          d.in_view,
          Json{d.point_left.x, d.point_left.y, d.point_left.z},
          Json{d.pixel_left.x, d.pixel_left.y},
          Json{d.pixel_right.x, d.pixel_right.y},
          ellipse(d.ellipse_left),
          ellipse(d.ellipse_right),
          d.row_difference};
}

Json figuresJson(const TrueFigures& f) {
  return {{"points", f.points}, {"dy_means", f.dy_means}, {"dy_min", f.dy_min},
          {"dy_max", f.dy_max}, {"zero_dis", f.zero_dis}, {"pol_dis", f.pol_dis}};
}

Json pairJson(const Scene& scene, std::size_t index) {
  const PairTruth truth = pairTruth(scene, index);
  Json dots = Json::array();
  for (const DotTruth& dot : truth.dots) dots.push_back(dotJson(dot));
  return {{"left_from_board", poseJson(truth.left_from_board)},
          {"rectified_focal", truth.rectified_focal},
          {"figures", figuresJson(trueFigures(scene, truth))},
          {"dots", dots}};
}

}  // namespace

std::string truthJson(const Scene& scene) {
  Json json{{"preset", scene.name},
            {"note", scene.note},
            {"seed", scene.seed},
            {"type", scene.settings.type},
            {"f_scale", scene.settings.f_scale},
            {"board", boardJson(scene.board)},
            {"optics", opticsJson(scene.optics)},
            {"cameras", Json::parse(calibrationJson(scene.rig))},
            {"given", Json::parse(calibrationJson(scene.given))},
            {"dot_fields",
             {"id", "drawn", "in_view", "point_left", "pixel_left", "pixel_right",
              "ellipse_left: x, y, semi_a, semi_b, angle", "ellipse_right", "row_difference"}},
            {"pairs", Json::array()}};
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index)
    json["pairs"].push_back(pairJson(scene, index));
  return json.dump() + "\n";
}

}  // namespace scene
