#include "store/work/MetadataFile.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>

#include "check/document/JsonText.h"
#include "platform/WholeFile.h"
#include "store/work/Names.h"

namespace polarline {
namespace {

using Json = nlohmann::json;

std::string textOf(const BatchSet& set, const std::string& settings) {
  JsonText json(JsonText::Form::kShort);
  json.object().key("metadata").object();
  for (const auto& [key, value] : set.metadata) json.member(key, value);
  json.end().member("settings", settings).member("place", names::byPath(set.folder, settings));
  if (!set.list.empty()) json.member("list", set.list).member("line", set.line);
  return json.end().take() + "\n";
}

/// An object without members where none can be read.
Json readThere(const StoredPlace& place) {
  std::ifstream stream(place.metadata(), std::ios::binary);
  Json there = Json::parse(stream, nullptr, false);
  return there.is_object() ? there : Json::object();
}

/// The line of the same list that it is of; none of another list.
std::optional<std::size_t> lineOf(const Json& there, const BatchSet& set) {
  const Json line = there.value("line", Json());
  if (set.list.empty() || there.value("list", Json()) != set.list || !line.is_number_unsigned()) return std::nullopt;
  return line.get<std::size_t>();
}

}  // namespace

bool hasMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings) {
  const Json there = readThere(place);
  if (there.value("settings", Json()) != settings || !there.contains("metadata")) return false;
  const Json wanted = Json::parse(textOf(set, settings));  // As the writer has it, whatever bytes the list has.
  const std::optional<std::size_t> line = lineOf(there, set);
  if (there["metadata"] == wanted["metadata"]) return !line || *line <= set.line;
  return set.metadata.empty() || (!there["metadata"].empty() && line && *line < set.line);
}

void writeMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings) {
  if (!hasMetadata(place, set, settings)) whole_file::write(place.metadata(), textOf(set, settings));
}

}  // namespace polarline
