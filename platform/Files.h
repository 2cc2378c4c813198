#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <ios>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

/// The file system as the library sees it. Paths carry the library's own separator, the backslash; the system's
/// separator is put in here and nowhere else, at the moment a file or folder is opened, tested or made.
namespace files {

/// The separator of every path that the library forms.
inline constexpr char kPathSeparator = '\\';

/// The path with the system's own separators.
std::string nativePath(const std::string& path);

/// The text before the last separator; a path without one comes back whole, an empty one empty.
std::string folderOf(const std::string& path);

/// A path in its three pieces. A path without a separator has the folder ".\".
struct SplitName {
  std::string folder;
  std::string base;
  std::string extension;  ///< Behind the last dot of the rest, without it.
};
SplitName SplitPath(const std::string& path);

/// The text behind the path's last dot, empty without a dot.
std::string extensionOf(const std::string& path);

/// Whether the path exists. Throws `std::filesystem::filesystem_error` with the operation "exists" when the system
/// does not tell.
bool exists(const std::string& path);

/// Makes a folder, one level: 0 when the path is there already or was made, otherwise non-zero. No shell is run; the
/// words of the path, split at blanks as a command line would split them, are each made as one folder.
std::int32_t MakeFolder(const std::string& path);

/// Streams in the classic locale. A stream that does not open, also for an empty name, stays failed. An exception
/// inside a read is passed on; a stream by itself would swallow it and look like the end of the file.
std::ifstream openInput(const std::string& path, std::ios::openmode mode = std::ios::in);
std::ofstream openOutput(const std::string& path, std::ios::openmode mode = std::ios::out);

/// Reads the bytes of a file, at most `most` of them. Returns 0, or the C library's `errno` of the failed open.
std::int32_t readBytes(const std::string& path, std::size_t most, std::vector<std::uint8_t>& bytes);

/// `cv::imread` with the pixels as they are stored; empty when it cannot be read.
cv::Mat readImage(const std::string& path);

/// `cv::imwrite` without parameters; or what a `PictureRedirection` of this thread makes of it.
bool writeImage(const std::string& path, const cv::Mat& image);

}  // namespace files
