#include "platform/Document.h"

#include <opencv2/core.hpp>
#include <stdexcept>

#include "platform/BoundedInput.h"
#include "platform/DocumentTraps.h"
#include "platform/Files.h"

namespace documents {
namespace {

/// OpenCV takes what follows a question mark for parameters, and opens the file of the name in front of it; one named
/// .gz, or .gz and a digit, it unpacks, without the digit.
bool isNameForOpenCv(const std::string& path) {
  const std::string extension = files::extensionOf(path);
  const bool isPacked = extension.starts_with("gz") && extension.size() <= 3;
  return !isPacked && path.find('?') == std::string::npos;
}

cv::FileStorage parsed(const std::string& path) {
  try {
    return {files::nativePath(path), cv::FileStorage::READ};
  } catch (const std::length_error&) {  // A key of nothing but blanks, in a line of YAML.
    CV_Error_(cv::Error::StsParseError, ("%s has a key without a name", path.c_str()));
  }
}

}  // namespace

cv::FileStorage openForReading(const std::string& path) {
  if (!isNameForOpenCv(path)) return {};
  std::ifstream stream = files::openInput(path, std::ios::in | std::ios::binary);
  if (!stream.is_open()) return {};
  const std::string text = bounded::readText(stream);
  if (const char* const trap = trapIn(text)) {
    CV_Error_(cv::Error::StsParseError, ("%s has %s, which is not read", path.c_str(), trap));
  }
  return parsed(path);
}

cv::FileStorage openForWriting(const std::string& path) {
  if (!isNameForOpenCv(path)) return {};
  return {files::nativePath(path), cv::FileStorage::WRITE};
}

}  // namespace documents
