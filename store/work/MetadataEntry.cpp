#include "store/work/MetadataEntry.h"

#include <algorithm>

#include "polarline/errors.h"
#include "store/work/UtcTime.h"

namespace polarline {
void addMetadata(const std::string& entry, const std::string& place,
                 std::vector<std::pair<std::string, std::string>>& metadata) {
  const std::size_t sign = entry.find('=');
  if (sign == std::string::npos || sign == 0)
    throw InputError(place, "'" + entry + "' was found; key=value was wanted, such as serial=A0042");
  const std::string key = entry.substr(0, sign);
  const std::string value = entry.substr(sign + 1);
  if (std::ranges::count(metadata, key, &std::pair<std::string, std::string>::first) != 0)
    throw InputError(place, "tells '" + key + "' twice");
  if (key == "time" && !utcTime(value))
    throw InputError(place, "time=" + value + " was found; a time such as 2026-03-01T22:15:00Z was wanted");
  metadata.emplace_back(key, value);
}

}  // namespace polarline
