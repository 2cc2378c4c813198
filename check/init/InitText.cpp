#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "platform/PlainNumber.h"
#include "platform/Printable.h"
#include "polarline/init.h"

namespace polarline {
namespace {

/// So many pictures without a partner are told by name, the rest in a number.
constexpr std::size_t kMostNamed = 20;

std::string sentence(const std::string& text) { return text.ends_with('.') ? text : text + '.'; }

std::string found(const MadeSet& set) {
  const auto side = [&](const InitDetection& seen) {
    std::string text = fmt::format("{} of {} dots", seen.found, set.expected);
    if (seen.columns > 0) text += fmt::format(" in {} columns and {} rows", seen.columns, seen.rows);
    if (seen.dot_radius > 0.0) text += fmt::format(", radius about {:.1f} px", seen.dot_radius);
    return text;
  };
  return fmt::format("Board        {}\nFirst pair   left {}; right {}\n", set.board, side(set.left), side(set.right));
}

std::string aloneText(const std::vector<std::string>& names, const char* side) {
  std::string text;
  for (std::size_t k = 0; k < std::min(names.size(), kMostNamed); ++k)
    text += fmt::format("Alone        {} {}\n", side, plain::onOneLine(names[k]));
  if (names.size() > kMostNamed) text += fmt::format("Alone        {} and {} more\n", side, names.size() - kMostNamed);
  return text;
}

std::string filesText(const MadeSet& set) {
  std::string names;
  std::size_t pictures = 0;
  for (const std::string& name : set.files) {
    const bool is_picture = name.starts_with("left_") || name.starts_with("right_");
    if (is_picture)
      ++pictures;
    else
      names += (names.empty() ? "" : ", ") + name;
  }
  return fmt::format("Wrote        {}: {}{}\n", plain::onOneLine(set.folder), names,
                     pictures == 0 ? "" : fmt::format(", and {} pictures", pictures));
}

}  // namespace

std::string initText(const MadeSet& set) {
  std::string text =
      fmt::format("Pairs        {}, pictures {}x{}, {} bits, {} channel{}\n", set.pairs.size(), set.picture.width,
                  set.picture.height, set.bits, set.channels, set.channels == 1 ? "" : "s");
  text += aloneText(set.alone_left, "left") + aloneText(set.alone_right, "right");
  text += found(set);
  text += fmt::format("Calibration  {}, {}, baseline {} board units\n", set.calibration_format, set.model,
                      plain::rounded(set.baseline, 6));
  for (const std::string& guess : set.guesses)
    text += fmt::format("Guessed      {}\n", plain::onOneLine(sentence(guess)));
  for (const Warning& warning : set.warnings)
    text += fmt::format("Warning      {}: {} {}\n", warning.code, plain::onOneLine(sentence(warning.text)),
                        plain::onOneLine(sentence(warning.advice)));
  text += filesText(set);
  return text + fmt::format("Next         {}", set.next);
}

}  // namespace polarline
