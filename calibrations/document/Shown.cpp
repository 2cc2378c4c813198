#include "calibrations/document/Shown.h"

namespace calibrations {

std::string shown(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  std::string result = "'";
  for (const char c : text.substr(0, kLongest)) result += c >= ' ' && c <= '~' ? c : '?';
  return result + (text.size() > kLongest ? "...'" : "'");
}

}  // namespace calibrations
