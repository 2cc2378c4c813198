#include "check/document/PairPart.h"

#include <vector>

#include "polarline/refine.h"

namespace polarline {
namespace {

void writeFigure(JsonText& json, const Figure& figure) {
  json.key(figure.name);
  if (figure.values.empty() && !(figure.is_list && figure.is_own)) {
    json.null();
  } else if (figure.is_list) {
    json.array();
    for (const double value : figure.values) json.value(value, figure.is_single);
    json.end();
  } else {
    json.value(figure.values[0], figure.is_single);
  }
}

void writeLists(JsonText& json, const PairPoints& points) {
  json.list("id", points.id);
  json.list("left_x", points.left_x).list("left_y", points.left_y);
  json.list("right_x", points.right_x).list("right_y", points.right_y);
  json.list("dy", points.dy).list("residual", points.residual);
  json.list("x", points.x).list("y", points.y).list("z", points.z);
  json.list("rectified_left_x", points.rectified_left_x).list("rectified_left_y", points.rectified_left_y);
  json.list("rectified_right_x", points.rectified_right_x).list("rectified_right_y", points.rectified_right_y);
}

void writeStates(JsonText& json, const char* name, const std::vector<DotState>& states) {
  json.key(name).array();
  for (const DotState state : states) json.value(nameOf(state));
  json.end();
}

void writeFigures(JsonText& json, const std::vector<Figure>& figures) {
  json.key("figures").object();
  for (const Figure& figure : figures) writeFigure(json, figure);
  json.end();
}

void writeUncertainty(JsonText& json, const std::vector<FigureUncertainty>& figures) {
  json.key("uncertainty").object();
  for (const FigureUncertainty& each : figures) {
    json.key(each.name).object().member("sd", each.sd);
    json.member("low95", each.low95).member("high95", each.high95).end();
  }
  json.end();
}

void writeRefined(JsonText& json, const RefinedPair& pair) {
  json.key("refined").object();
  writeFigures(json, pair.figures);
  json.member("problem", pair.problem);
  writeUncertainty(json, pair.uncertainty);
  json.key("dots").object().member("left", pair.refined_left).member("right", pair.refined_right);
  json.member("left_out", pair.left_out).end();
  json.key("points").object();
  writeLists(json, pair.points);
  json.list("left_sd_x", pair.points.left_sd_x).list("left_sd_y", pair.points.left_sd_y);
  json.list("right_sd_x", pair.points.right_sd_x).list("right_sd_y", pair.points.right_sd_y);
  writeStates(json, "left_state", pair.points.left_state);
  writeStates(json, "right_state", pair.points.right_state);
  json.end().end();
}

void writeReason(JsonText& json, const PairCheck& pair) {
  json.key("reason");
  if (pair.finished) {
    json.null();
    return;
  }
  json.object().member("code", pair.reason.code).member("text", pair.reason.text);
  json.member("side", pair.reason.side).member("step", pair.reason.step).end();
}

void writePictureQuality(JsonText& json, const char* name, const PictureQuality& quality) {
  json.key(name).object().member("dots", quality.dots).member("full_scale", quality.full_scale);
  json.member("dot", quality.dot).member("ground", quality.ground).member("contrast", quality.contrast);
  json.member("noise", quality.noise).member("saturated", quality.saturated);
  json.member("dot_radius", quality.dot_radius).member("edge_width", quality.edge_width);
  json.member("edge_width_along", quality.edge_width_along).member("edge_width_across", quality.edge_width_across);
  json.member("blur_direction", quality.blur_direction).member("board_share", quality.board_share).end();
}

void writeQuality(JsonText& json, const PairCheck& pair) {
  json.key("quality");
  if (!pair.quality) {
    json.null();
    return;
  }
  json.object();
  writePictureQuality(json, "left", pair.quality->left);
  writePictureQuality(json, "right", pair.quality->right);
  json.member("coverage", pair.quality->coverage).end();
}

}  // namespace

void writePair(JsonText& json, const PairCheck& pair) {
  json.object().member("index", pair.index).member("left", pair.left).member("right", pair.right);
  json.member("state", pair.finished ? "finished" : "given up");
  writeReason(json, pair);
  writeFigures(json, pair.figures);
  json.key("carried").array();
  for (const Figure& figure : pair.figures) {
    if (figure.is_carried) json.value(figure.name);
  }
  json.end();
  writeUncertainty(json, pair.uncertainty);
  json.key("found").object().member("left", pair.found_left).member("right", pair.found_right).end();
  writeQuality(json, pair);
  json.key("points").object();
  writeLists(json, pair.points);
  json.end();
  if (pair.refined) writeRefined(json, *pair.refined);
  json.end();
}

}  // namespace polarline
