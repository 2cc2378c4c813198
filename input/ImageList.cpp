#include "input/ImageList.h"

#include <array>
#include <cstddef>
#include <istream>
#include <ostream>
#include <vector>

#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Pieces.h"

namespace {

constexpr const char* kBlanks = " \t";
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
  return header.starts_with('#') ? wordsOf(header.substr(1), kBlanks).size() : 0;
}

std::int32_t fail(const std::string& text) {
  console::err() << text << std::flush;
  return kFailed;
}

}  // namespace

std::int32_t ReadImageList(const std::string& path, ImagePairList& images) {
  images.clear();
  std::ifstream stream = files::openInput(path);
  if (!stream.is_open()) return fail(cv::format("Open %s to read failed!\n", path.c_str()));
  const std::size_t cameras = cameraCount(nextLine(stream));
  if (cameras == 0) return fail("ParseHeaderLine failed!\n");
  images.resize(cameras);
  const std::string folder = files::SplitPath(path).folder + files::kPathSeparator;
  for (std::string line = nextLine(stream); stream; line = nextLine(stream)) {
    const std::vector<std::string> names = wordsOf(line, kBlanks);
    if (names.empty()) return fail("ParseContentLine failed!\n");
    if (names.size() != cameras) return fail("fname pairs does not agree with number of camera!\n");
    for (std::size_t camera = 0; camera < cameras; ++camera) {
      images[camera].push_back(files::readImage(folder + names[camera]));
    }
  }
  return kRead;
}
