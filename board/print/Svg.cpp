#include "board/print/Svg.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

namespace boards {
namespace {

/// A tenth of a micrometre is finer than any printer.
double rounded(double millimetres) { return std::round(millimetres * 1e4) / 1e4; }

std::string escaped(std::string_view text) {
  std::string safe;
  for (const char letter : text) {
    switch (letter) {
      case '&':
        safe += "&amp;";
        break;
      case '<':
        safe += "&lt;";
        break;
      case '>':
        safe += "&gt;";
        break;
      default:
        safe += letter;
    }
  }
  return safe;
}

std::string circle(const Disc& disc) {
  return fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"{}\"{}/>\n", rounded(disc.x), rounded(disc.y),
                     rounded(disc.radius), disc.ink ? "" : " fill=\"white\"");
}

std::string rectangle(const Bar& bar) {
  return fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"/>\n", rounded(bar.x), rounded(bar.y),
                     rounded(bar.width), rounded(bar.height));
}

std::string words(const Caption& caption) {
  return fmt::format("<text x=\"{}\" y=\"{}\" font-size=\"{}\">{}</text>\n", rounded(caption.x), rounded(caption.y),
                     rounded(caption.size), escaped(caption.text));
}

}  // namespace

std::string svgOf(const Sheet& sheet) {
  std::string svg = fmt::format(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}mm\" height=\"{1}mm\" viewBox=\"0 0 {0} {1}\">\n"
      "<title>{2}</title>\n"
      "<rect width=\"{0}\" height=\"{1}\" fill=\"white\"/>\n"
      "<g fill=\"black\">\n",
      sheet.width, sheet.height, escaped(sheet.title));
  for (const Disc& disc : sheet.discs) svg += circle(disc);
  for (const Bar& bar : sheet.bars) svg += rectangle(bar);
  svg += "</g>\n<g fill=\"black\" font-family=\"Helvetica, Arial, sans-serif\" text-anchor=\"middle\">\n";
  for (const Caption& caption : sheet.captions) svg += words(caption);
  return svg + "</g>\n</svg>\n";
}

}  // namespace boards
