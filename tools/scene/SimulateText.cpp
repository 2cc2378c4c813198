#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "polarline/simulate.h"

namespace polarline {
namespace {

using Json = nlohmann::ordered_json;

/// Names of files may hold any bytes.
std::string textOf(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n"; }

}  // namespace

std::string simulatedText(const SimulatedSet& set) {
  return fmt::format("{}: {} {} in {}\n", set.name, set.pairs, set.pairs == 1 ? "pair" : "pairs", set.folder);
}

std::string simulatedJson(const SimulatedSet& set) {
  return textOf({{"schema", "polarline-simulate/1"},
                 {"scene", set.scene},
                 {"name", set.name},
                 {"folder", set.folder},
                 {"pairs", set.pairs},
                 {"seed", set.seed}});
}

std::string presetsText() {
  std::string text;
  for (const PresetInfo& info : presets()) text += fmt::format("{:<20}{}\n", info.name, info.note);
  return text;
}

std::string presetsJson() {
  Json json{{"schema", "polarline-presets/1"}, {"presets", Json::array()}};
  for (const PresetInfo& info : presets()) json["presets"].push_back({{"name", info.name}, {"note", info.note}});
  return textOf(json);
}

}  // namespace polarline
