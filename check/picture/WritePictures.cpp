#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/WholeFile.h"
#include "polarline/detect.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

/// Names and contents.
using Files = std::vector<std::pair<std::string, std::string>>;

void require(const std::error_code& failure, const fs::path& folder) {
  if (failure) throw OutputError(folder.string(), failure.message());
}

/// `shown`: what the user calls the folder.
void writeInto(const fs::path& folder, const Files& files, const fs::path& shown) {
  for (const auto& [name, content] : files) whole_file::write(folder / name, content, shown / name);
}

/// A new folder appears with its pictures in it, or not at all.
void writeNew(fs::path folder, const Files& files) {
  if (!folder.has_filename()) folder = folder.parent_path();
  std::error_code failure;
  if (folder.has_parent_path()) fs::create_directories(folder.parent_path(), failure);
  require(failure, folder);
  const whole_file::PartialFolder partial(folder);
  writeInto(partial.path(), files, folder);
  fs::rename(partial.path(), folder, failure);
  require(failure, folder);
}

}  // namespace

std::vector<std::string> writePictures(const cv::Mat& image, const Detection& detection, const std::string& folder,
                                       const std::string& name, bool all) {
  Files files;
  const auto add = [&](const char* what, const cv::Mat& picture) {
    if (!picture.empty()) files.emplace_back(name + "_" + what + ".png", pngOf(picture));
  };
  if (detection.found || all) add("overlay", overlay(image, detection));
  if (!detection.found || all) add("ellipses", ellipsesPicture(image, detection));
  if (!detection.found || all) add("binary", detection.binary);
  std::error_code unknown;
  fs::exists(folder, unknown) ? writeInto(folder, files, folder) : writeNew(folder, files);
  std::vector<std::string> written;
  for (const auto& [file, content] : files) written.push_back((fs::path(folder) / file).string());
  return written;
}

}  // namespace polarline
