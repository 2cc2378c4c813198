#include "check/run/PolarInput.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "check/explain/Names.h"
#include "check/explain/WarningOf.h"
#include "check/run/InputText.h"
#include "check/run/PolarValues.h"
#include "check/set/ByteOrderMark.h"
#include "input/KeyValueText.h"
#include "input/PolarConfigReader.h"
#include "polarline/check.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

void requireKey(const std::string& key, const std::string& setting) {
  const std::vector<std::string> names = settingKeys();
  if (std::ranges::count(names, key) == 0)
    throw InputError("setting '" + setting + "'",
                     "the polar configuration has no key '" + key + "'" + offer(nearest(key, names)));
}

void requireValue(const std::string& setting, const std::string& key, const std::string& value) {
  if (const auto wanted = wantedInstead(key, value))
    throw InputError("setting '" + setting + "'", shownOf(value) + " was found; " + *wanted + " was wanted");
}

/// The lines that take the place of those of the file: of equal keys the last one wins.
std::string linesOf(const std::vector<std::string>& settings) {
  std::string lines;
  for (const std::string& setting : settings) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos || setting.find_first_of("\r\n") != std::string::npos)
      throw InputError("setting '" + setting + "'", "KEY=VALUE was wanted");
    const std::string key = setting.substr(0, equals);
    requireKey(key, setting);
    requireValue(setting, key, setting.substr(equals + 1));
    lines += "\n" + key + ": " + setting.substr(equals + 1);
  }
  return lines;
}

/// A line of the file that says a key.
struct KeyLine {
  int number = 0;
  std::string key;
  std::string value;
};

/// The last line of each key, in the order of the keys.
std::map<std::string, KeyLine> keyLinesOf(const std::string& text) {
  std::map<std::string, KeyLine> lines;
  std::istringstream stream(text);
  std::string line;
  for (int number = 1; std::getline(stream, line); ++number) {
    for (const auto& [key, value] : parseKeyValueText(line)) lines[key] = {number, key, value};
  }
  return lines;
}

/// Lines without a colon are left out in silence; only comments and blank lines are meant to be.
void warnOfLines(const std::string& text, const std::string& path, std::vector<Warning>& warnings) {
  std::istringstream stream(text);
  std::string line;
  for (int number = 1; std::getline(stream, line); ++number) {
    const std::size_t begin = line.find_first_not_of(" \t\r");
    if (begin == std::string::npos || line[begin] == '#' || !parseKeyValueText(line).empty()) continue;
    warnings.push_back(warningOf(
        "bad_line", fmt::format("{}, line {}: {} was found; 'key: value' was wanted", path, number, shownOf(line))));
  }
}

/// Names the reference point that ended the reading; its status does not.
void refusePoint(const std::string& text, const std::string& path) {
  for (const auto& [key, line] : keyLinesOf(text)) {
    const auto wanted = key.ends_with("_GT") ? wantedInstead(key, line.value) : std::nullopt;
    if (wanted)
      throw InputError(fmt::format("{}, line {}: {}", path, line.number, key),
                       fmt::format("{} was found; {} was wanted", shownOf(line.value), *wanted));
  }
}

/// The reader takes such values in silence, and so does a check: a run of the library would have the same figures.
void warnOfValues(const std::string& text, const std::string& path, const std::string& settings,
                  std::vector<Warning>& warnings) {
  const KeyValueTable set = parseKeyValueText(settings);
  for (const auto& [key, line] : keyLinesOf(text)) {
    const auto wanted = wantedInstead(key, line.value);
    if (!wanted || set.contains(key)) continue;
    warnings.push_back(warningOf("bad_value", fmt::format("{}, line {}: {}: {} was found; {} was wanted", path,
                                                          line.number, key, shownOf(line.value), *wanted)));
  }
}

void warnOfUnknown(const KeyValueTable& table, const std::string& path, std::vector<Warning>& warnings) {
  const std::vector<std::string> names = settingKeys();
  for (const auto& [key, value] : table) {
    if (std::ranges::count(names, key) != 0 || byte_order_mark::begins(key)) continue;
    warnings.push_back(warningOf(
        "unknown_key", fmt::format("{}: nothing reads the key '{}'{}", path, key, offer(nearest(key, names)))));
  }
}

/// The mark can't be seen, and belongs to the key of the first line.
void warnOfMark(const KeyValueTable& table, const std::string& path, std::vector<Warning>& warnings) {
  for (const auto& [key, value] : table) {
    if (!byte_order_mark::begins(key)) continue;
    warnings.push_back(warningOf(
        "byte_order_mark", fmt::format("{}, line 1: a byte order mark stands before the key '{}', so that nothing "
                                       "reads it",
                                       path, byte_order_mark::cutOff(key))));
  }
}

}  // namespace

PolarInput readPolar(const InputFile& file, const std::vector<std::string>& settings, std::vector<Warning>& warnings) {
  const std::string& path = file.shown;
  const std::string written = contentOf(file);
  const std::string set = linesOf(settings);
  const std::string text = written + set;
  const KeyValueTable table = parseKeyValueText(text);
  if (table.empty()) throw InputError(path, "has no line 'key: value'");
  PolarInput input;
  // The reader takes a path for a file if it opens; a text with line ends is none.
  const std::int32_t status = ReadPolarConfig(text + "\n", "", input.config);
  if (status == polar_status::kBadGroundTruthPoint) refusePoint(written, path);
  if (status != polar_status::kSuccess) throw InputError(path, advisedMeaning(status));
  warnOfMark(table, path, warnings);
  warnOfUnknown(table, path, warnings);
  warnOfLines(written, path, warnings);
  warnOfValues(written, path, set, warnings);
  for (const auto& [key, value] : table) input.keys.insert(key);
  return input;
}

}  // namespace polarline
