#include "report/read/DemandCheck.h"

#include <string>

namespace polarline {
namespace {

/// A mean with its spread, or anything else that is only numbers.
void demandNumbers(const Place& place) {
  for (const auto& [key, value] : place.json().items()) place.numbers({key.c_str()});
}

void demandSummary(const Place& place) {
  for (const Place& figure : place.members("figures")) {
    figure.numbers({"mean", "sd", "min", "max", "worst_pair"});
    demandNumbers(figure);
  }
}

void demandRun(const Place& document) {
  document.object("tool").texts({"name", "version", "library"});
  document.texts({"started"}).numbers({"seconds"});
  const Place set = document.object("set").texts({"name", "folder", "id"});
  for (const Place& input : set.objects("inputs")) input.texts({"role", "path", "sha256"});
  document.object("status").numbers({"code"}).texts({"name", "text", "advice"}).truths({"retry"});
  static_cast<void>(document.object("settings"));
}

void demandScene(const Place& document) {
  const Place board = document.object("board").counts({"rows", "cols", "points"}).numbers({"step", "step_y"});
  static_cast<void>(board.whole("type"));
  const Place cameras = document.object("cameras").texts({"model"}).counts({"width", "height"});
  for (const char* side : {"left", "right"})
    cameras.object(side).numbers({"fx", "fy", "cx", "cy"}).numberList("coefficients");
  if (const auto extrinsics = cameras.objectIfAny("extrinsics"))
    extrinsics->numbers({"rx", "ry", "rz", "tx", "ty", "tz"});
}

void demandQuality(const Place& pair) {
  const auto quality = pair.objectIfAny("quality");
  if (!quality) return;
  quality->numbers({"coverage"});
  for (const char* side : {"left", "right"}) {
    if (const auto picture = quality->objectIfAny(side)) demandNumbers(*picture);
  }
}

void demandUncertainty(const Place& figures) {
  if (!figures.objectIfAny("uncertainty")) return;
  for (const Place& figure : figures.members("uncertainty")) demandNumbers(figure.numbers({"sd", "low95", "high95"}));
}

void demandPair(const Place& pair) {
  pair.counts({"index"}).texts({"left", "right"}).oneOf("state", {"finished", "given up"});
  if (const auto reason = pair.objectIfAny("reason")) reason->numbers({"code"}).texts({"text", "side", "step"});
  pair.figures("figures").textList("carried");
  demandUncertainty(pair);
  if (const auto found = pair.objectIfAny("found")) found->counts({"left", "right"});
  demandQuality(pair);
  if (const auto refined = pair.objectIfAny("refined")) {
    refined->figures("figures").texts({"problem"});
    refined->object("dots").counts({"left", "right"});
    demandUncertainty(*refined);
  }
}

void demandDiagnosis(const Place& document) {
  const auto diagnosis = document.objectIfAny("diagnosis");
  if (!diagnosis) return;
  diagnosis->texts({"text"}).numbers({"rows_before", "rows_after"}).truths({"pattern_left"});
  for (const Place& cause : diagnosis->objects("causes"))
    cause.texts({"name", "unit", "text"}).numbers({"value", "sd", "share"});
  if (const auto correction = diagnosis->objectIfAny("correction")) correction->texts({"path"});
}

void demandJudgement(const Place& document) {
  const Place summary = document.object("summary").counts({"pairs", "finished"});
  demandSummary(summary);
  if (const auto refined = summary.objectIfAny("refined")) demandSummary(*refined);
  for (const Place& limit : document.objects("limits")) {
    limit.texts({"text", "why"}).numbers({"value", "pair"}).truths({"holds"});
  }
  document.oneOf("verdict", {"pass", "fail", "error"});
  for (const Place& warning : document.objects("warnings")) {
    warning.texts({"code", "text", "advice"});
    if (warning.json().contains("pair")) warning.numbers({"pair"});
  }
}

}  // namespace

void demandCheck(const Place& document) {
  document.oneOf("schema", {"polarline-check/1"});
  demandRun(document);
  demandScene(document);
  for (const Place& pair : document.objects("pairs")) demandPair(pair);
  demandJudgement(document);
  demandDiagnosis(document);
}

}  // namespace polarline
