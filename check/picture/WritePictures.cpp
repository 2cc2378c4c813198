#include <filesystem>
#include <system_error>

#include "platform/WholeFile.h"
#include "polarline/detect.h"
#include "polarline/errors.h"

namespace polarline {

std::vector<std::string> writePictures(const cv::Mat& image, const Detection& detection, const std::string& folder,
                                       const std::string& name, bool all) {
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  if (failure) throw OutputError(folder, failure.message());
  std::vector<std::string> written;
  const auto write = [&](const char* what, const cv::Mat& picture) {
    if (picture.empty()) return;
    const std::filesystem::path path = std::filesystem::path(folder) / (name + "_" + what + ".png");
    whole_file::write(path, pngOf(picture));
    written.push_back(path.string());
  };
  if (detection.found || all) write("overlay", overlay(image, detection));
  if (!detection.found || all) write("ellipses", ellipsesPicture(image, detection));
  if (!detection.found || all) write("binary", detection.binary);
  return written;
}

}  // namespace polarline
