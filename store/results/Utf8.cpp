#include "store/results/Utf8.h"

#include <cstddef>

namespace polarline::results {
namespace {

/// The bytes of the character that begins here; 0 for one that is none.
std::size_t lengthOfCharacter(std::string_view bytes) {
  const auto at = [&](std::size_t k) { return static_cast<unsigned char>(bytes[k]); };
  const unsigned first = at(0);
  if (first < 0x80U) return 1;
  const std::size_t length = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
  if (first < 0xC2U || first > 0xF4U || bytes.size() < length) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    if ((at(k) & 0xC0U) != 0x80U) return 0;
  }
  const unsigned second = at(1);
  const bool is_overlong = (first == 0xE0U && second < 0xA0U) || (first == 0xF0U && second < 0x90U);
  const bool is_beyond = (first == 0xEDU && second > 0x9FU) || (first == 0xF4U && second > 0x8FU);
  return is_overlong || is_beyond ? 0 : length;
}

}  // namespace

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = lengthOfCharacter(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

}  // namespace polarline::results
