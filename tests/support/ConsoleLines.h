#pragma once

#include <cstdlib>
#include <iomanip>
#include <ios>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

/// What a run told on standard output, taken apart.
namespace console_lines {

inline std::vector<std::string> linesOf(const std::string& out) {
  std::vector<std::string> lines;
  std::istringstream stream(out);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

inline bool isNumber(const std::string& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  return end != text.c_str() && *end == '\0';
}

/// The lines without the number behind their last colon and without what follows a tab, so that runs of other figures
/// and times can be compared. The coordinates of the board's ends, two lines a measurement, are left out.
inline std::vector<std::string> stepsOf(const std::string& out) {
  std::vector<std::string> steps;
  for (std::string line : linesOf(out)) {
    if (line.starts_with("checke_point")) continue;
    line = line.substr(0, line.find('\t'));
    const std::size_t colon = line.rfind(':');
    steps.push_back(colon != std::string::npos && isNumber(line.substr(colon + 1)) ? line.substr(0, colon + 1) : line);
  }
  return steps;
}

/// What stands behind a label, up to the end of its line, in each line that begins with it.
inline std::vector<std::string> textsBehind(const std::string& label, const std::string& out) {
  std::vector<std::string> texts;
  for (const std::string& line : linesOf(out))
    if (line.starts_with(label)) texts.push_back(line.substr(label.size()));
  return texts;
}

/// How standard output writes a number.
enum class Notation { kDefault, kEightDecimals };

inline std::string written(double value, Notation notation) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  if (notation == Notation::kEightDecimals) stream << std::fixed << std::setprecision(8);
  stream << value;
  return stream.str();
}

}  // namespace console_lines
