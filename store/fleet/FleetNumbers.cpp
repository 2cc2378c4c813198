#include "store/fleet/FleetNumbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace polarline::fleet {

FleetJson shortNumber(double value) {
  if (!std::isfinite(value)) return nullptr;
  std::array<char, 32> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 7);
  double read = 0.0;
  std::from_chars(text.data(), written.ptr, read);
  return read;
}

FleetJson shortNumber(const std::optional<double>& value) { return value ? shortNumber(*value) : FleetJson(nullptr); }

}  // namespace polarline::fleet
