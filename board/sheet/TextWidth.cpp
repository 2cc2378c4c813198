#include "board/sheet/TextWidth.h"

namespace boards {
namespace {

/// Widths of the letters of DejaVu Sans, a wide font, rounded up by group.
constexpr double kUsual = 0.65;
constexpr double kCapital = 0.8;
constexpr double kWide = 0.86;
constexpr double kWidest = 1.0;

double asciiWidth(char letter) {
  constexpr std::string_view kWidestLetters = "MWm@%";
  constexpr std::string_view kWideLetters = "w+=<>~#^";
  if (kWidestLetters.find(letter) != std::string_view::npos) return kWidest;
  if (kWideLetters.find(letter) != std::string_view::npos) return kWide;
  return letter >= 'A' && letter <= 'Z' ? kCapital : kUsual;
}

}  // namespace

double textWidth(std::string_view text) {
  double width = 0.0;
  for (const char byte : text) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x80U) width += asciiWidth(byte);
    // First bytes of longer sequences: letters with accents and the like, then signs and scripts of full width.
    else if (code >= 0xE0U)
      width += kWidest;
    else if (code >= 0xC0U)
      width += kWide;
  }
  return width;
}

}  // namespace boards
