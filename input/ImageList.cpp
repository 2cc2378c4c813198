#include "input/ImageList.h"

#include <array>
#include <cstddef>
#include <istream>
#include <ostream>
#include <utility>
#include <vector>

#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Pieces.h"

namespace {

constexpr const char* kBetweenWords = " \t";
/// Meant: a longer line counts as the end of the list.
constexpr std::size_t kLongestLine = 511;
/// Room for the longest line, a carriage return and the terminating zero.
constexpr std::size_t kLineBuffer = kLongestLine + 2;
/// What the reader returns: no status, as 1 is success.
constexpr std::int32_t kFailed = 0;
constexpr std::int32_t kRead = 1;

/// The next line without its line end ("\n" or "\r\n"). A line that is too long is cut, and the stream fails.
std::string nextLine(std::istream& stream) {
  std::array<char, kLineBuffer> buffer{};
  stream.getline(buffer.data(), buffer.size());
  const bool has_end = stream.good();
  std::string line(buffer.data(), static_cast<std::size_t>(stream.gcount()) - (has_end ? 1 : 0));
  if (has_end && line.ends_with('\r')) line.pop_back();
  if (line.size() > kLongestLine) {
    line.resize(kLongestLine);
    stream.setstate(std::ios::failbit);
  }
  return line;
}

/// Of a header that is too long, the names in the part that was read count; the list then ends.
std::size_t cameraCount(const std::string& header) {
  return header.starts_with('#') ? wordsOf(header.substr(1), kBetweenWords).size() : 0;
}

/// The rows behind the header, up to the first that is wrong.
void readRows(std::istream& stream, ImageNames& names) {
  for (std::string line = nextLine(stream); stream; line = nextLine(stream)) {
    std::vector<std::string> row = wordsOf(line, kBetweenWords);
    if (row.empty()) names.failure = "ParseContentLine failed!\n";
    if (!row.empty() && row.size() != names.cameras) {
      names.failure = "fname pairs does not agree with number of camera!\n";
    }
    if (!names.failure.empty()) return;
    names.rows.push_back(std::move(row));
  }
}

}  // namespace

ImageNames ReadImageNames(const std::string& path) {
  ImageNames names;
  std::ifstream stream = files::openInput(path);
  if (!stream.is_open()) {
    names.failure = cv::format("Open %s to read failed!\n", path.c_str());
    return names;
  }
  names.cameras = cameraCount(nextLine(stream));
  names.folder = files::SplitPath(path).folder + files::kPathSeparator;
  if (names.cameras == 0) {
    names.failure = "ParseHeaderLine failed!\n";
  } else {
    readRows(stream, names);
  }
  return names;
}

std::int32_t ReadImageList(const std::string& path, ImagePairList& images) {
  const ImageNames names = ReadImageNames(path);
  images.assign(names.cameras, {});
  for (const std::vector<std::string>& row : names.rows) {
    for (std::size_t camera = 0; camera < names.cameras; ++camera) {
      images[camera].push_back(files::readImage(names.folder + row[camera]));
    }
  }
  if (names.failure.empty()) return kRead;
  console::err() << names.failure << std::flush;
  return kFailed;
}
