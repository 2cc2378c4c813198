#include "store/work/MetadataFile.h"

#include <fstream>
#include <iterator>

#include "check/document/JsonText.h"
#include "platform/WholeFile.h"

namespace polarline {
namespace {

std::string textOf(const BatchSet& set, const std::string& settings) {
  JsonText json(JsonText::Form::kShort);
  json.object().key("metadata").object();
  for (const auto& [key, value] : set.metadata) json.member(key, value);
  json.end().member("settings", settings).end();
  return json.take() + "\n";
}

}  // namespace

bool hasMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings) {
  if (set.metadata.empty()) return true;
  std::ifstream stream(place.metadata(), std::ios::binary);
  const std::string there{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  return there == textOf(set, settings);
}

void writeMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings) {
  if (!hasMetadata(place, set, settings)) whole_file::write(place.metadata(), textOf(set, settings));
}

}  // namespace polarline
