#include <algorithm>
#include <array>
#include <memory>

#include "check/document/JsonText.h"
#include "check/figures/Summary.h"
#include "check/refined/StateWords.h"
#include "polarline/check.h"

namespace polarline {
namespace {

constexpr const char* kSchema = "polarline-check/1";
constexpr const char* kToolVersion = PLP_VERSION;
constexpr const char* kLibrary = "PolarLinePrecision 1.3.3";

const char* nameOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::kPass:
      return "pass";
    case Verdict::kFail:
      return "fail";
    case Verdict::kError:
      return "error";
  }
  return "error";
}

void writeNumber(JsonText& json, double value, bool is_single) {
  if (is_single) {
    json.value(static_cast<float>(value));
  } else {
    json.value(value);
  }
}

void writeFigure(JsonText& json, const Figure& figure) {
  json.key(figure.name);
  if (figure.values.empty() && !(figure.is_list && figure.is_own)) {
    json.null();
  } else if (figure.is_list) {
    json.array();
    for (const double value : figure.values) writeNumber(json, value, figure.is_single);
    json.end();
  } else {
    writeNumber(json, figure.values[0], figure.is_single);
  }
}

/// The lists that detected and refined points share.
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

void writeCamera(JsonText& json, const char* name, const CameraNumbers& camera) {
  json.key(name).object().member("fx", camera.fx).member("fy", camera.fy);
  json.member("cx", camera.cx).member("cy", camera.cy).list("coefficients", camera.coefficients).end();
}

void writeSet(JsonText& json, const Check& check) {
  json.key("set").object().member("name", check.name).member("folder", check.folder).member("id", check.id);
  json.key("inputs").array();
  for (const SetInput& input : check.inputs) {
    json.object().member("role", input.role).member("path", input.path).member("sha256", input.sha256).end();
  }
  json.end().end();
}

void writeStatus(JsonText& json, const Status& status) {
  json.key("status").object().key("code");
  if (status.code) {
    json.value(*status.code);
  } else {
    json.null();
  }
  json.member("name", status.name).member("text", status.text).member("advice", status.advice);
  json.member("retry", status.retry).end();
}

void writeCameras(JsonText& json, const Cameras& cameras) {
  json.key("cameras").object().member("type", cameras.type).member("model", cameras.model);
  json.member("width", cameras.width).member("height", cameras.height);
  writeCamera(json, "left", cameras.left);
  writeCamera(json, "right", cameras.right);
  static constexpr std::array kNames = {"rx", "ry", "rz", "tx", "ty", "tz"};
  json.key("extrinsics");
  if (cameras.extrinsics.empty()) {
    json.null().end();
    return;
  }
  json.object();
  for (std::size_t k = 0; k < cameras.extrinsics.size(); ++k) json.member(kNames.at(k), cameras.extrinsics[k]);
  json.end().end();
}

void writeSummaries(JsonText& json, const std::vector<FigureSummary>& summaries) {
  json.key("figures").object();
  for (const FigureSummary& each : summaries) {
    json.key(each.name).object().member("mean", each.mean).member("sd", each.sd);
    json.member("min", each.min).member("max", each.max).member("worst_pair", each.worst_pair);
    json.member("sd_mean", each.sd_mean).member("low95", each.low95).member("high95", each.high95).end();
  }
  json.end();
}

void writeSummary(JsonText& json, const Check& check) {
  json.key("summary").object().member("pairs", check.pairs.size()).member("finished", check.finished());
  writeSummaries(json, check.summary);
  if (check.refined_summary) {
    json.key("refined").object();
    writeSummaries(json, *check.refined_summary);
    json.end();
  }
  json.end();
}

void writeLimits(JsonText& json, const std::vector<LimitResult>& limits) {
  json.key("limits").array();
  for (const LimitResult& limit : limits) {
    json.object().member("text", limit.text).key("value");
    if (limit.value) {
      writeNumber(json, *limit.value, limit.is_single);
    } else {
      json.null();
    }
    json.member("holds", limit.holds).key("pair");
    if (limit.pair >= 0) {
      json.value(limit.pair);
    } else {
      json.null();
    }
    json.member("why", limit.why).end();
  }
  json.end();
}

void writeCause(JsonText& json, const Cause& cause) {
  json.object().member("name", cause.name).member("value", cause.value).member("sd", cause.sd);
  json.member("unit", cause.unit).member("share", cause.share).member("text", cause.text);
  if (cause.group > 0) json.member("group", cause.group);
  json.end();
}

void writeDiagnosis(JsonText& json, const Check& check) {
  json.key("diagnosis");
  if (!check.diagnosis) {
    json.null();
    return;
  }
  const Diagnosis& diagnosis = *check.diagnosis;
  json.object().key("causes").array();
  for (const Cause& cause : diagnosis.causes) writeCause(json, cause);
  json.end().member("text", diagnosis.text).member("rows_before", diagnosis.rows_before);
  json.member("rows_after", diagnosis.rows_after).member("pattern_left", diagnosis.pattern_left);
  if (check.correction) {
    json.key("correction").object().member("path", check.correction->path);
    json.member("rows_predicted", check.correction->rows_predicted);
    json.member("rows_seen", check.correction->rows_seen).end();
  }
  json.end();
}

void writeWarnings(JsonText& json, const std::vector<Warning>& warnings) {
  json.key("warnings").array();
  for (const Warning& warning : warnings) {
    json.object().member("code", warning.code);
    if (warning.pair >= 0) json.member("pair", warning.pair);
    json.member("text", warning.text).member("advice", warning.advice).end();
  }
  json.end();
}

void writeRest(JsonText& json, const Check& check) {
  json.member("started", check.started).member("seconds", check.seconds);
  writeSet(json, check);
  writeStatus(json, check.status);
  json.key("settings").object();
  for (const Setting& setting : check.settings) json.key(setting.key).raw(setting.json);
  json.end();
  json.key("board").object().member("type", check.board.type).member("rows", check.board.rows);
  json.member("cols", check.board.cols).member("step", static_cast<float>(check.board.step));
  json.member("step_y", static_cast<float>(check.board.step_y)).member("points", check.board.points).end();
  writeCameras(json, check.cameras);
  writeSummary(json, check);
  writeLimits(json, check.limits);
  // Without limits the verdict is "pass", too: who reads it alone has to learn that it rests on none.
  json.member("judged", check.verdict == Verdict::kError ? std::size_t{0} : check.limits.size());
  json.member("verdict", nameOf(check.verdict));
  writeDiagnosis(json, check);
  writeWarnings(json, check.warnings);
}

}  // namespace

/// The pairs stand before what is known only behind them.
class CheckDocument::Writer {
 public:
  explicit Writer(Sink sink) : sink_(std::move(sink)) {
    json_.object().member("schema", kSchema).key("tool").object().member("name", "polarline");
    json_.member("version", kToolVersion).member("library", kLibrary).end().key("pairs").array();
  }
  void add(const PairCheck& pair) {
    writePair(json_, pair);
    sink_(json_.take());
  }
  void finish(const Check& check) {
    json_.end();
    writeRest(json_, check);
    json_.end();
    sink_(json_.take() + "\n");
  }

 private:
  Sink sink_;
  JsonText json_;
};

CheckDocument::CheckDocument(Sink sink) : writer_(std::make_unique<Writer>(std::move(sink))) {}

CheckDocument::~CheckDocument() = default;

void CheckDocument::add(const PairCheck& pair) { writer_->add(pair); }

void CheckDocument::finish(const Check& check) { writer_->finish(check); }

std::string toJson(const Check& check) {
  std::string text;
  CheckDocument document([&text](const std::string& piece) { text += piece; });
  for (const PairCheck& pair : check.pairs) document.add(pair);
  document.finish(check);
  return text;
}

}  // namespace polarline
