#include "check/picture/TargetNumbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <limits>
#include <opencv2/core/persistence.hpp>
#include <optional>

#include "input/KeyValueText.h"
#include "platform/BoundedInput.h"
#include "platform/ClassicStream.h"
#include "platform/Document.h"
#include "platform/Files.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

/// A value as it is written; none where the key is not there.
using Written = std::function<std::optional<std::string>(const char* key)>;

std::optional<std::string> inNode(const cv::FileNode& record, const char* key) {
  const cv::FileNode node = record.isMap() ? record[key] : cv::FileNode();
  if (node.empty()) return std::nullopt;
  if (node.isString()) return fmt::format("\"{}\"", static_cast<std::string>(node));  // No number to the detector.
  return node.isInt() || node.isReal() ? fmt::format("{}", static_cast<double>(node)) : std::string("no number");
}

std::optional<std::string> inTable(const KeyValueTable& table, const char* key) {
  const auto found = table.find(key);
  if (found == table.end()) return std::nullopt;
  return found->second.substr(0, found->second.find_last_not_of(" \t\r\n") + 1);
}

bool isDocument(const std::string& target) {
  constexpr std::array<const char*, 4> kEndings = {"json", "xml", "yml", "yaml"};
  return std::ranges::count(kEndings, files::extensionOf(target)) != 0;
}

/// Of a file whose name ends in "ini"; any other target is the text itself.
std::string textOf(const std::string& target) {
  std::ifstream stream = files::openInput(target, std::ios::in | std::ios::binary);
  return stream.is_open() && target.ends_with("ini") ? bounded::readText(stream) : target;
}

void require(const Written& written, const std::string& place, const char* key, double most, const char* wanted) {
  const auto value = written(key);
  if (!value) throw InputError(place + ": " + key, fmt::format("is not there; {} was wanted", wanted));
  std::istringstream stream = classic::input(*value);
  double number = 0.0;
  if (!(stream >> number) || !(number > 0.0) || number > most)
    throw InputError(place + ": " + key, fmt::format("'{}' was found; {} was wanted", *value, wanted));
}

void requireAll(const Written& written, const std::string& place) {
  constexpr double kMostLines = std::numeric_limits<std::uint16_t>::max();
  for (const char* key : {"rows", "cols"}) require(written, place, key, kMostLines, "a whole number of 1 to 65535");
  require(written, place, "step", std::numeric_limits<float>::max(), "a number above 0");
}

}  // namespace

void requireBoardNumbers(const std::string& target, const std::string& place) {
  if (isDocument(target)) {
    const cv::FileStorage storage = documents::openForReading(target);
    if (!storage.isOpened()) return;
    const cv::FileNode patterns = storage["patterns"];
    if (patterns.empty()) return;
    const cv::FileNode record = patterns[0];
    requireAll([&](const char* key) { return inNode(record, key); }, place);
    return;
  }
  const KeyValueTable table = parseKeyValueText(textOf(target));
  requireAll([&](const char* key) { return inTable(table, key); }, place);
}

}  // namespace polarline
