#include "input/PolarConfigReader.h"

#include <cstddef>
#include <ostream>
#include <type_traits>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "input/KeyValueText.h"
#include "input/PolarConfigKeys.h"
#include "platform/BoundedInput.h"
#include "platform/Console.h"
#include "platform/Files.h"

namespace {

constexpr std::size_t kPointSize = 3;

std::string textOf(const std::string& config) {
  std::ifstream stream = files::openInput(config, std::ios::in | std::ios::binary);
  if (!stream.is_open()) return config;
  return bounded::readText(stream);
}

/// Reads one key; false if the reading stops there.
template <auto Field>
bool readKey(const KeyValueTable& table, const polar_keys::Key<Field>& key, PolarConfig& out) {
  auto& value = key.valueIn(out);
  const bool present = lookup(table, key.name, value);
  if constexpr (std::is_same_v<decltype(value), bool&>) {
    if (key.rule == polar_keys::Rule::kOnIfAbsent && !present) value = true;
  }
  if constexpr (std::is_same_v<decltype(value), std::vector<double>&>) {
    if (key.rule == polar_keys::Rule::kThreeNumbers) return !table.contains(key.name) || value.size() == kPointSize;
  }
  return true;
}

std::int32_t readKeys(const KeyValueTable& table, const std::string& result_folder, PolarConfig& out) {
  const bool whole = polar_keys::forEachWhile([&](const auto& key) { return readKey(table, key, out); });
  if (!whole) return polar_status::kBadGroundTruthPoint;
  out.result_folder = result_folder;
  return polar_status::kSuccess;
}

}  // namespace

std::int32_t ReadPolarConfig(const std::string& config, const std::string& result_folder, PolarConfig& out) {
  // Meant: a configuration without content is no failure. The run takes the record as it is.
  if (config.empty()) {
    console::out() << "polarconfig is NULL";
    return polar_status::kSuccess;
  }
  const std::string text = textOf(config);
  if (text.empty()) {
    console::line("Polarconfig is empty or no content was read.");
    return polar_status::kSuccess;
  }
  const KeyValueTable table = parseKeyValueText(text);
  if (table.empty()) {
    console::line("Read Polar file Fail!");
    return polar_status::kSuccess;
  }
  return readKeys(table, result_folder, out);
}
