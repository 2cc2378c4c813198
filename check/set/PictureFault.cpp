#include "check/set/PictureFault.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/FileHandle.h"

namespace polarline {
namespace {

constexpr std::string_view kPng = "\x89PNG\r\n\x1a\n";
constexpr std::string_view kPngEnd("IEND\xAE\x42\x60\x82", 8);
constexpr std::string_view kJpeg = "\xFF\xD8\xFF";
constexpr std::string_view kJpegScan = "\xFF\xDA";
constexpr std::string_view kJpegEnd = "\xFF\xD9";

/// As much of it as can be read; `errno` is 0 where that is all.
std::string bytesOf(std::FILE* file) {
  std::string content;
  std::string piece(std::size_t{1} << 16U, ' ');
  errno = 0;
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file)) content.append(piece, 0, count);
  if (std::ferror(file) == 0) errno = 0;
  return content;
}

/// A right that is missing stays so; a server that is away comes back.
bool isPassing(int error) { return error != EACCES && error != EPERM && error != EISDIR; }

PictureFault unread(int error) {
  return {"can't be read: " + std::generic_category().message(error), isPassing(error)};
}

}  // namespace

bool isCutOff(const std::string& content) {
  if (content.starts_with(kPng)) return content.rfind(kPngEnd) == std::string::npos;
  if (!content.starts_with(kJpeg)) return false;
  // Within a scan no marker can stand; a small picture in the header has an end of its own, before the scan.
  const std::size_t scan = content.rfind(kJpegScan);
  const std::size_t end = content.rfind(kJpegEnd);
  return scan == std::string::npos || end == std::string::npos || end < scan;
}

bool isCutOffJpeg(const std::string& path) {
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  std::string begin(kJpeg.size(), ' ');
  if (!file || std::fread(begin.data(), 1, begin.size(), file.get()) != begin.size() || begin != kJpeg) return false;
  return isCutOff(begin + bytesOf(file.get()));
}

PictureFault pictureFault(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return unread(EISDIR);
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  if (!file) return unread(errno);
  const std::string content = bytesOf(file.get());
  if (errno != 0) return unread(errno);
  if (content.empty()) return {"can't be decoded: it is empty", false};
  return {isCutOff(content) ? "can't be decoded: it is cut off" : "can't be decoded", false};
}

}  // namespace polarline
