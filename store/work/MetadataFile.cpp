#include "store/work/MetadataFile.h"

#include <fstream>
#include <sstream>

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
  std::ostringstream there;
  there << std::ifstream(place.metadata(), std::ios::binary).rdbuf();
  return there.str() == textOf(set, settings);
}

void writeMetadata(const StoredPlace& place, const BatchSet& set, const std::string& settings) {
  if (!hasMetadata(place, set, settings)) whole_file::write(place.metadata(), textOf(set, settings));
}

}  // namespace polarline
