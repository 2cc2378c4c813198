#include "store/results/ReadMetadata.h"

#include <map>

#include "store/results/KeyedReader.h"

namespace polarline::results {

std::string SetMetadata::value(std::string_view key) const {
  for (const auto& [name, value] : values) {
    if (name == key) return value;
  }
  return {};
}

SetMetadata readMetadata(std::string_view text) {
  KeyedReader json(text);
  SetMetadata metadata;
  std::map<std::string, std::string> values;
  const auto value = [&](std::string_view key) { values[std::string(key)] = json.text(); };
  json.members("", {{"metadata", [&] { json.object(value); }},
                    {"settings", json.into(metadata.settings), KeyedReader::Need::kMayMiss},
                    {"place", json.into(metadata.place), KeyedReader::Need::kMayMiss}});
  json.end();
  metadata.values.assign(values.begin(), values.end());
  return metadata;
}

}  // namespace polarline::results
