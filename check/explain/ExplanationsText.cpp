#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "polarline/explain.h"

namespace polarline {

std::string explanationsText(const std::vector<Explanation>& all) {
  std::string text;
  for (const Explanation& each : all) {
    const std::string name = each.name == each.code ? "" : " (" + each.name + ")";
    text += fmt::format("{}{}\n  {}\n", each.code, name, each.meaning);
    const bool is_figure = each.meaning.starts_with("A figure");  // A cause has a unit, too, and no limit.
    if (!each.advice.empty()) text += fmt::format("  {}: {}\n", is_figure ? "Limits" : "What to do", each.advice);
  }
  return text;
}

std::string explanationsJson(const std::vector<Explanation>& all) {
  nlohmann::ordered_json json{{"schema", "polarline-explain/1"}, {"explanations", nlohmann::ordered_json::array()}};
  for (const Explanation& each : all) {
    nlohmann::ordered_json entry{
        {"code", each.code}, {"name", each.name}, {"meaning", each.meaning}, {"advice", each.advice}};
    if (!each.unit.empty()) entry["unit"] = each.unit;
    json["explanations"].push_back(std::move(entry));
  }
  return json.dump(2) + "\n";
}

}  // namespace polarline
