#include "board/sheet/PrintableText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace boards {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Bytes that the sequence of a first byte has; 0 for a byte that begins none.
std::size_t lengthOf(unsigned char first) {
  if (first < 0x80U) return 1;
  if (first >= 0xC2U && first < 0xE0U) return 2;
  if (first >= 0xE0U && first < 0xF0U) return 3;
  return first >= 0xF0U && first < 0xF5U ? 4 : 0;
}

std::uint32_t codeOf(std::string_view sequence) {
  constexpr std::array<unsigned, 5> kMasks = {0, 0x7FU, 0x1FU, 0x0FU, 0x07U};
  std::uint32_t code = static_cast<unsigned char>(sequence[0]) & kMasks[sequence.size()];
  for (const char byte : sequence.substr(1)) code = (code << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
  return code;
}

/// Neither written longer than it needs, nor half of a pair, nor one of the two that are no characters, nor too large.
bool isCharacter(std::uint32_t code, std::size_t length) {
  constexpr std::array<std::uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  return code >= kLeast[length] && !surrogate && code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

bool isControl(std::uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

}  // namespace

std::string printable(std::string_view text) {
  std::string clean;
  while (!text.empty()) {
    const std::size_t length = lengthOf(static_cast<unsigned char>(text[0]));
    const std::string_view sequence = text.substr(0, length);
    const bool whole = length != 0 && sequence.size() == length && std::ranges::all_of(sequence.substr(1), continues);
    const std::uint32_t code = whole ? codeOf(sequence) : 0;
    if (!whole || !isCharacter(code, length)) {
      clean += kReplacement;
      text.remove_prefix(1);
      continue;
    }
    clean += isControl(code) ? std::string_view(" ") : sequence;
    text.remove_prefix(length);
  }
  return clean;
}

}  // namespace boards
