#include "check/run/Settings.h"

#include <fmt/format.h>

#include <cmath>

#include "input/PolarConfigKeys.h"

namespace polarline {
namespace {

std::string jsonOf(std::int32_t value) { return std::to_string(value); }
std::string jsonOf(bool value) { return value ? "true" : "false"; }
std::string jsonOf(float value) { return std::isfinite(value) ? fmt::format("{}", value) : "null"; }
std::string jsonOf(double value) { return std::isfinite(value) ? fmt::format("{}", value) : "null"; }

template <typename Item>
std::string jsonOf(const std::vector<Item>& list) {
  std::string text;
  for (const auto& item : list) text += (text.empty() ? "" : ", ") + jsonOf(item);
  return "[" + text + "]";
}

}  // namespace

std::vector<std::string> settingKeys() {
  std::vector<std::string> names;
  polar_keys::forEach([&](const auto& key) { names.emplace_back(key.name); });
  return names;
}

std::vector<Setting> settingsOf(const PolarConfig& config) {
  std::vector<Setting> settings;
  polar_keys::forEach([&](auto key) { settings.push_back({key.name, jsonOf(key.valueIn(config))}); });
  return settings;
}

}  // namespace polarline
