#include "platform/Utf8.h"

namespace utf8 {
namespace {

struct Lead {
  std::size_t length;
  unsigned low, high;  ///< Of the second byte.
};

Lead leadOf(unsigned first) {
  constexpr unsigned kLow = 0x80U;
  constexpr unsigned kHigh = 0xBFU;
  if (first >= 0xC2U && first <= 0xDFU) return {2, kLow, kHigh};
  if (first >= 0xE0U && first <= 0xEFU)  // Shorter forms exist; surrogates are no characters.
    return {3, first == 0xE0U ? 0xA0U : kLow, first == 0xEDU ? 0x9FU : kHigh};
  if (first >= 0xF0U && first <= 0xF4U) return {4, first == 0xF0U ? 0x90U : kLow, first == 0xF4U ? 0x8FU : kHigh};
  return {0, 0, 0};
}

}  // namespace

std::size_t length(std::string_view text) {
  const auto at = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  if (text.empty()) return 0;
  if (at(0) < 0x80U) return 1;
  const Lead lead = leadOf(at(0));
  if (lead.length == 0 || text.size() < lead.length || at(1) < lead.low || at(1) > lead.high) return 0;
  for (std::size_t k = 2; k < lead.length; ++k) {
    if ((at(k) & 0xC0U) != 0x80U) return 0;
  }
  return lead.length;
}

bool isValid(std::string_view text) {
  while (!text.empty()) {
    const std::size_t bytes = length(text);
    if (bytes == 0) return false;
    text.remove_prefix(bytes);
  }
  return true;
}

}  // namespace utf8
