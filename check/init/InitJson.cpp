#include <nlohmann/json.hpp>

#include "polarline/init.h"

namespace polarline {
namespace {

using Json = nlohmann::ordered_json;

Json pairsJson(const MadeSet& set) {
  Json pairs = Json::array();
  for (const InitPair& pair : set.pairs)
    pairs.push_back({{"left", pair.left},
                     {"right", pair.right},
                     {"listed_left", pair.listed_left},
                     {"listed_right", pair.listed_right}});
  return pairs;
}

Json warningsJson(const MadeSet& set) {
  Json warnings = Json::array();
  for (const Warning& warning : set.warnings) {
    Json entry{{"code", warning.code}, {"text", warning.text}, {"advice", warning.advice}};
    if (warning.pair >= 0) entry["pair"] = warning.pair;
    warnings.push_back(std::move(entry));
  }
  return warnings;
}

Json detectionJson(const InitDetection& detection) {
  Json json{
      {"found", detection.found}, {"columns", detection.columns}, {"rows", detection.rows}, {"dot_radius", nullptr}};
  if (detection.dot_radius > 0.0) json["dot_radius"] = detection.dot_radius;
  return json;
}

}  // namespace

std::string initJson(const MadeSet& set) {
  const Json json{
      {"schema", "polarline-init/1"},
      {"folder", set.folder},
      {"files", set.files},
      {"pairs", pairsJson(set)},
      {"alone", {{"left", set.alone_left}, {"right", set.alone_right}}},
      {"pictures",
       {{"width", set.picture.width}, {"height", set.picture.height}, {"channels", set.channels}, {"bits", set.bits}}},
      {"board", {{"text", set.board}, {"expected", set.expected}}},
      {"first_pair", {{"left", detectionJson(set.left)}, {"right", detectionJson(set.right)}}},
      {"calibration",
       {{"format", set.calibration_format}, {"type", set.type}, {"model", set.model}, {"baseline", set.baseline}}},
      {"corners", set.corners},
      {"guesses", set.guesses},
      {"warnings", warningsJson(set)},
      {"next", set.next}};
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace polarline
