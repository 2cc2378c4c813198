#include "calibrations/rewrite/JsonRewrite.h"

#include <array>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<const char*, 2> kPair = {"IR_L", "IR_R"};

bool isObjectAt(const Json& json, const char* key) {
  const auto found = json.find(key);
  return found != json.end() && found->is_object();
}

bool hasPair(const Json& json) {
  if (!json.is_object() || json.contains("DEPTH")) return false;  // A depth camera would go before the pair.
  for (const char* camera : kPair) {
    if (!isObjectAt(json, camera)) return false;
  }
  return json.contains("RGB") || json.contains("COLOR");
}

}  // namespace

std::optional<std::string> withInfraredPair(std::string_view json, const polarline::Calibration& calibration) {
  constexpr bool kThrows = false, kTakesComments = true;
  Json rewritten = Json::parse(json, nullptr, kThrows, kTakesComments);
  if (rewritten.is_discarded() || !hasPair(rewritten)) return std::nullopt;
  const Json pair = Json::parse(polarline::calibrationJson(calibration));
  constexpr bool kIntoObjects = true;
  for (const char* camera : kPair) rewritten[camera].update(pair[camera], kIntoObjects);
  return rewritten.dump(4, ' ', false, Json::error_handler_t::replace) + "\n";
}
