#include "platform/Document.h"

#include <algorithm>
#include <opencv2/core.hpp>
#include <string_view>

#include "platform/BoundedInput.h"
#include "platform/Files.h"

namespace documents {
namespace {

constexpr const char* kBlanks = " \t\r\n";
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

/// The place of the next character that is neither blank nor in a YAML comment.
std::size_t nextVisible(std::string_view text, std::size_t at) {
  for (at = text.find_first_not_of(kBlanks, at); at < text.size() && text[at] == '#';) {
    at = text.find_first_not_of(kBlanks, text.find('\n', at));
  }
  return at;
}

/// A dash behind the dots that end a YAML document, unless it begins the three of the next one.
bool hasDashBehindAnEnd(std::string_view text) {
  constexpr std::string_view kEnd = "...";
  for (std::size_t end = text.find(kEnd); end != std::string_view::npos; end = text.find(kEnd, end + 1)) {
    const std::size_t next = nextVisible(text, end + kEnd.size());
    if (next < text.size() && text[next] == '-' && !text.substr(next).starts_with("---")) return true;
  }
  return false;
}

bool endsInEqualsSign(std::string_view text) {
  const std::size_t last = text.find_last_not_of(kBlanks);
  return last != std::string_view::npos && text[last] == '=';
}

/// What the parser does not come back from, or null. It reads base64 data of no lawful type, and behind the end of a
/// YAML document, without an end; where an XML text ends in the middle of a tag, as seen without what a NUL hides, it
/// follows a null pointer.
const char* trapIn(std::string_view text) {
  const std::string_view beginning = text.substr(0, kLongestBeginning);
  const bool yaml = contains(beginning, "%YAML");
  const bool xml = contains(beginning, "<?xml");
  if (yaml && hasDashBehindAnEnd(text)) return "a dash behind its end";
  if (xml && contains(text, std::string_view("\0", 1))) return "a NUL";
  if (xml && endsInEqualsSign(text)) return "an equals sign at its end";
  const bool base64 =
      yaml ? contains(text, "!!binary")
           : (xml ? contains(text, "\"binary\"") || contains(text, "'binary'") : contains(text, "$base64$"));
  return base64 ? "base64 data" : nullptr;
}

}  // namespace

cv::FileStorage openForReading(const std::string& path) {
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

}  // namespace documents
