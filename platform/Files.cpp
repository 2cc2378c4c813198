#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <locale>
#include <memory>
#include <opencv2/imgcodecs.hpp>
#include <string_view>
#include <system_error>

#include "platform/OutputFile.h"
#include "platform/PictureRedirection.h"
#include "platform/Pieces.h"

namespace files {
namespace {

#if defined(_WIN32)
constexpr const char* kSeparators = "\\";
#else
constexpr const char* kSeparators = "\\/";
#endif

std::string behindLast(const std::string& text, char mark) {
  const std::size_t position = text.rfind(mark);
  return position == std::string::npos ? std::string() : text.substr(position + 1);
}

/// A folder counts as a file that does not open, also on systems that would open it.
bool isFolder(const std::string& native) {
  std::error_code unknown;
  return std::filesystem::is_directory(native, unknown);
}

template <typename Stream>
Stream open(const std::string& path, std::ios::openmode mode) {
  Stream stream;
  stream.imbue(std::locale::classic());
  const std::string native = nativePath(path);
  if (isFolder(native)) {
    stream.setstate(std::ios::failbit);
  } else {
    stream.open(native, mode);
  }
  return stream;
}

/// The codec does not look whether a PNG took its last bytes. Other kinds are taken for whole.
bool isWholePicture(const std::string& native) {
  if (!native.ends_with(".png")) return true;
  constexpr std::string_view kEnd("IEND\xAE\x42\x60\x82", 8);
  std::ifstream stream(native, std::ios::binary);
  stream.seekg(-static_cast<std::streamoff>(kEnd.size()), std::ios::end);
  std::string end(kEnd.size(), ' ');
  return stream.read(end.data(), static_cast<std::streamsize>(end.size())) && end == kEnd;
}

struct Closer {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

}  // namespace

std::string nativePath(const std::string& path) {
#if defined(_WIN32)
  return path;
#else
  std::string native = path;
  std::replace(native.begin(), native.end(), kPathSeparator, '/');
  return native;
#endif
}

std::string folderOf(const std::string& path) { return path.substr(0, path.find_last_of(kSeparators)); }

SplitName SplitPath(const std::string& path) {
  SplitName split;
  const std::size_t separator = path.find_last_of(kSeparators);
  const bool has_folder = separator != std::string::npos;
  split.folder = has_folder ? path.substr(0, separator) : std::string{'.', kPathSeparator};
  const std::string name = has_folder ? path.substr(separator + 1) : path;
  split.base = name.substr(0, name.rfind('.'));
  split.extension = behindLast(name, '.');
  return split;
}

std::string extensionOf(const std::string& path) { return behindLast(path, '.'); }

bool exists(const std::string& path) {
  const std::filesystem::path native = nativePath(path);
  std::error_code error;
  const bool found = std::filesystem::exists(native, error);
  if (error) throw std::filesystem::filesystem_error("exists", native, error);
  return found;
}

std::int32_t MakeFolder(const std::string& path) {
  std::error_code unknown;
  if (std::filesystem::exists(nativePath(path), unknown)) return 0;
  const std::vector<std::string> folders = wordsOf(nativePath(path), " \t");
  // As a command line would: each word is tried, and a folder that already exists is a failure.
  std::int32_t result = folders.empty() ? 1 : 0;
  for (const std::string& folder : folders) {
    if (!std::filesystem::create_directory(folder, unknown)) result = 1;
  }
  return result;
}

std::ifstream openInput(const std::string& path, std::ios::openmode mode) {
  auto stream = open<std::ifstream>(path, mode);
  stream.exceptions(std::ios::badbit);
  return stream;
}

std::ofstream openOutput(const std::string& path, std::ios::openmode mode) { return open<std::ofstream>(path, mode); }

std::int32_t readBytes(const std::string& path, std::size_t most, std::vector<std::uint8_t>& bytes) {
  const std::string native = nativePath(path);
  if (isFolder(native)) return EISDIR;
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(native.c_str(), "rb"));
  if (!file) return errno;
  bytes.resize(most);
  bytes.resize(std::fread(bytes.data(), 1, most, file.get()));
  return 0;
}

cv::Mat readImage(const std::string& path) { return cv::imread(nativePath(path), cv::IMREAD_UNCHANGED); }

bool writeImage(const std::string& path, const cv::Mat& image) {
  if (PictureRedirection::takes(path, image)) return true;
  const bool written = cv::imwrite(nativePath(path), image);
  if (!written || !isWholePicture(nativePath(path))) noteFailedWrite(path);
  return written;
}

}  // namespace files
