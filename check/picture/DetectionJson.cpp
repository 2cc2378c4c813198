#include <cmath>
#include <nlohmann/json.hpp>

#include "polarline/detect.h"

namespace polarline {
namespace {

using Json = nlohmann::ordered_json;

/// A number that is not finite is null.
Json number(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

Json sizeOf(const cv::Size& size) { return {{"width", size.width}, {"height", size.height}}; }

Json boardOf(const DetectedBoard& board) {
  return {{"type", board.type},
          {"rows", board.rows},
          {"cols", board.columns},
          {"step", number(board.step)},
          {"step_y", number(board.step_y)},
          {"points", board.rows * board.columns}};
}

Json dotsOf(const Detection& detection) {
  Json dots = {{"id", Json::array()},
               {"row", Json::array()},
               {"column", Json::array()},
               {"x", Json::array()},
               {"y", Json::array()}};
  for (const Dot& dot : detection.dots) {
    dots["id"].push_back(dot.id);
    dots["row"].push_back(dot.row);
    dots["column"].push_back(dot.column);
    dots["x"].push_back(number(dot.x));
    dots["y"].push_back(number(dot.y));
  }
  return dots;
}

Json contoursOf(const ContourTally& contours) {
  return {{"traced", contours.traced},         {"too_short", contours.too_short}, {"not_round", contours.not_round},
          {"not_fitted", contours.not_fitted}, {"inexact", contours.inexact},     {"accepted", contours.accepted}};
}

Json classesOf(const ClassTally& classes) {
  return {{"dot", classes.dots},         {"ring", classes.rings},      {"solid_ring", classes.solid_rings},
          {"big_dot", classes.big_dots}, {"unknown", classes.unknown}, {"rejected", classes.rejected}};
}

Json ellipsesOf(const Detection& detection) {
  Json ellipses = Json::array();
  for (const SeenEllipse& ellipse : detection.ellipses) {
    ellipses.push_back({{"x", number(ellipse.x)},
                        {"y", number(ellipse.y)},
                        {"a", number(ellipse.a)},
                        {"b", number(ellipse.b)},
                        {"angle", number(ellipse.angle)},
                        {"kind", ellipse.kind},
                        {"marker", ellipse.marker}});
  }
  return ellipses;
}

Json stagesOf(const Detection& detection) {
  Json stages = Json::array();
  for (const DetectionStage& stage : detection.stages)
    stages.push_back({{"name", stage.name}, {"state", stage.state}, {"text", stage.text}});
  return stages;
}

Json warningsOf(const Detection& detection) {
  Json warnings = Json::array();
  for (const Warning& warning : detection.warnings)
    warnings.push_back({{"code", warning.code}, {"text", warning.text}, {"advice", warning.advice}});
  return warnings;
}

}  // namespace

std::string detectionJson(const Detection& detection, const std::string& image_name, const std::string& target_name) {
  Json document;
  document["schema"] = "polarline-detect/1";
  document["image"] = sizeOf(detection.size);
  document["image"]["path"] = image_name;
  document["target"] = target_name;
  document["found"] = detection.found;
  document["step"] = detection.step;
  document["text"] = detection.text;
  document["advice"] = detection.advice;
  document["retry"] = false;  // The same picture ends the same.
  document["steps"] = stagesOf(detection);
  document["searched"] = detection.working_size.empty() ? Json(nullptr) : sizeOf(detection.working_size);
  document["board"] = boardOf(detection.board);
  document["dot_radius"] = detection.dot_radius > 0.0 ? number(detection.dot_radius) : Json(nullptr);
  document["dots"] = dotsOf(detection);
  document["missing"] = detection.missing;
  document["contours"] = contoursOf(detection.contours);
  document["classes"] = classesOf(detection.classes);
  document["ellipses"] = ellipsesOf(detection);
  document["warnings"] = warningsOf(detection);
  return document.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace polarline
