#include "store/work/MetadataEntry.h"

#include <algorithm>
#include <regex>

#include "polarline/errors.h"

namespace polarline {
namespace {

bool isTime(const std::string& text) {
  static const std::regex iso8601(
      R"(\d{4}-(0[1-9]|1[0-2])-(0[1-9]|[12]\d|3[01])([T ]([01]\d|2[0-3]):[0-5]\d(:[0-5]\d([.,]\d{1,9})?)?(Z|[+-]\d\d(:?\d\d)?)?)?)");
  return std::regex_match(text, iso8601);
}

}  // namespace

void addMetadata(const std::string& entry, const std::string& place,
                 std::vector<std::pair<std::string, std::string>>& metadata) {
  const std::size_t sign = entry.find('=');
  if (sign == std::string::npos || sign == 0)
    throw InputError(place, "'" + entry + "' was found; key=value was wanted, such as serial=A0042");
  const std::string key = entry.substr(0, sign);
  const std::string value = entry.substr(sign + 1);
  if (std::ranges::count(metadata, key, &std::pair<std::string, std::string>::first) != 0)
    throw InputError(place, "tells '" + key + "' twice");
  if (key == "time" && !isTime(value))
    throw InputError(place, "time=" + value + " was found; a time such as 2026-03-01T22:15:00Z was wanted");
  metadata.emplace_back(key, value);
}

}  // namespace polarline
