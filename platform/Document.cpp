#include "platform/Document.h"

#include <algorithm>
#include <opencv2/core.hpp>
#include <string_view>

#include "platform/BoundedInput.h"
#include "platform/Files.h"

namespace documents {
namespace {

/// A document that begins with a brace is JSON, whatever its name: its numbers may be as negative as they like.
std::string_view openingMarks(std::string_view text) { return text.starts_with('{') ? "{[" : "{[<-:"; }

/// Counted without regard to what closes them or stands in quotes: never less than the parser's depth.
std::size_t openingsOf(std::string_view text) {
  const std::string_view marks = openingMarks(text);
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [&](char c) { return marks.find(c) != std::string_view::npos; }));
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
  return {files::nativePath(path), cv::FileStorage::READ};
}

}  // namespace documents
