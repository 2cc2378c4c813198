#include "report/words/NumberText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace polarline {

std::string numberText(double value, int digits) {
  const double size = std::abs(value);
  if (!(size >= 1e-7 && size < 1e6)) return fmt::format("{:.{}g}", value, digits);
  const int whole = static_cast<int>(std::floor(std::log10(size))) + 1;
  if (whole <= digits && size >= 1e-4) return fmt::format("{:.{}g}", value, digits);
  return fmt::format("{:.{}f}", value, std::max(0, digits - whole));
}

}  // namespace polarline
