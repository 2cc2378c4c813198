#include "tools/scene/SceneFiles.h"

#include <filesystem>
#include <fstream>
#include <opencv2/imgcodecs.hpp>
#include <system_error>
#include <vector>

#include "polarline/errors.h"

namespace scene {

void makeFolder(const std::string& path) {
  std::error_code failure;
  std::filesystem::create_directories(path, failure);
  if (!std::filesystem::is_directory(path, failure)) throw polarline::OutputError(path, "the folder cannot be made");
}

void writeFile(const std::string& path, const std::string& content) {
  std::ofstream stream(path, std::ios::binary);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw polarline::OutputError(path, "cannot be written");
}

void writePng(const std::string& path, const cv::Mat& image) {
  std::vector<unsigned char> bytes;  // Through memory, as the codec does not look whether the file took its last bytes.
  if (!cv::imencode(".png", image, bytes)) throw polarline::OutputError(path, "cannot be encoded");
  writeFile(path, std::string(bytes.begin(), bytes.end()));
}

}  // namespace scene
