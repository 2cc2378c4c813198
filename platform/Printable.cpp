#include "platform/Printable.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/Utf8.h"

namespace plain {
namespace {

/// In UTF-8 the second set of control characters is C2 80 to C2 9F.
bool isControl(std::string_view character) {
  constexpr unsigned char kBlank = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  const auto at = [&](std::size_t k) { return static_cast<unsigned char>(character[k]); };
  if (character.size() == 1) return at(0) < kBlank || at(0) == kDelete;
  return character.size() == 2 && at(0) == 0xC2U && at(1) < 0xA0U;
}

/// As \xNN.
void appendNumbers(std::string& shown, std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    shown += "\\x";
    shown += kDigits[value / 16U];
    shown += kDigits[value % 16U];
  }
}

std::string shownBut(const std::string& text, std::string_view kept) {
  std::string shown;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t length = utf8::length(rest);
    const std::string_view character = rest.substr(0, std::max<std::size_t>(length, 1));
    if (length == 0 || (isControl(character) && character != kept)) {
      appendNumbers(shown, character);
    } else {
      shown += character;
    }
    rest.remove_prefix(character.size());
  }
  return shown;
}

}  // namespace

std::string printable(const std::string& text) { return shownBut(text, "\n"); }

std::string onOneLine(const std::string& text) { return shownBut(text, ""); }

bool isPlainLine(const std::string& text) { return onOneLine(text) == text; }

}  // namespace plain
