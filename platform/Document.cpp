#include "platform/Document.h"

#include <algorithm>
#include <opencv2/core.hpp>
#include <string_view>

#include "platform/BoundedInput.h"
#include "platform/Files.h"
#include "platform/YamlTraps.h"

namespace documents {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
/// Characters in which the mark of the syntax stands, a byte order mark before it included.
constexpr std::size_t kLongestBeginning = 8;

/// A document that begins with a brace is JSON, whatever its name: its numbers may be as negative as they like.
std::string_view openingMarks(std::string_view text) { return text.starts_with('{') ? "{[" : "{[<-:"; }

/// Counted without regard to what closes them or stands in quotes: never less than the parser's depth.
std::size_t openingsOf(std::string_view text) {
  const std::string_view marks = openingMarks(text);
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [&](char c) { return marks.find(c) != std::string_view::npos; }));
}

bool contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

/// Whether nothing that is seen follows an equals sign or an ampersand: a carriage return cuts off the rest of its
/// line.
bool endsInsideTag(std::string_view text) {
  bool isInside = false;
  bool isCutOff = false;
  for (const char c : text) {
    if (c == '\n') isCutOff = false;
    if (isInside && c == '\r') isCutOff = true;
    if (!isCutOff && !contains(kBlanks, std::string_view(&c, 1))) isInside = c == '=' || c == '&';
  }
  return isInside;
}

/// Base64 data of no lawful type are read without an end.
bool holdsBase64(std::string_view text, bool isYaml, bool isXml) {
  if (isYaml) return contains(text, "!binary") || contains(text, "^binary") || contains(text, ":binary");
  if (isXml) return contains(text, "\"binary\"") || contains(text, "'binary'");
  return contains(text, "$base64$");
}

/// What the parser does not come back from, or reads past, in words for an error text; or null. A NUL hides the rest of
/// its line, NULs behind the text do not matter; where XML ends in the middle of a tag, a null pointer is followed.
const char* trapIn(std::string_view text) {
  text = text.substr(0, text.find_last_not_of('\0') + 1);
  if (contains(text, std::string_view("\0", 1))) return "a NUL";
  const std::string_view beginning = text.substr(0, kLongestBeginning);
  const bool isYaml = contains(beginning, "%YAML");
  const bool isXml = contains(beginning, "<?xml");
  if (holdsBase64(text, isYaml, isXml)) return "base64 data";
  if (isXml && endsInsideTag(text)) return "an unfinished tag at its end";
  return isYaml ? trapInYaml(text) : nullptr;
}

/// OpenCV takes what follows a question mark for parameters, and opens the file of the name in front of it.
bool isNameForOpenCv(const std::string& path) { return !contains(path, "?"); }

}  // namespace

cv::FileStorage openForReading(const std::string& path) {
  if (!isNameForOpenCv(path)) return {};
  std::ifstream stream = files::openInput(path, std::ios::in | std::ios::binary);
  if (!stream.is_open()) return {};
  const std::string text = bounded::readText(stream);
  const std::size_t openings = openingsOf(text);
  if (openings > kMostOpenings) {
    CV_Error_(cv::Error::StsParseError,
              ("%s opens %zu brackets, tags or keys, the most is %zu", path.c_str(), openings, kMostOpenings));
  }
  if (const char* const trap = trapIn(text)) {
    CV_Error_(cv::Error::StsParseError, ("%s has %s, which is not read", path.c_str(), trap));
  }
  return {files::nativePath(path), cv::FileStorage::READ};
}

cv::FileStorage openForWriting(const std::string& path) {
  if (!isNameForOpenCv(path)) return {};
  return {files::nativePath(path), cv::FileStorage::WRITE};
}

}  // namespace documents
