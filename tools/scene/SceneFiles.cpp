#include "tools/scene/SceneFiles.h"

#include <filesystem>
#include <fstream>
#include <opencv2/imgcodecs.hpp>
#include <stdexcept>
#include <system_error>

namespace scene {

void makeFolder(const std::string& path) {
  std::error_code failure;
  std::filesystem::create_directories(path, failure);
  if (!std::filesystem::is_directory(path, failure)) throw std::runtime_error("cannot make the folder " + path);
}

void writeFile(const std::string& path, const std::string& content) {
  std::ofstream stream(path, std::ios::binary);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw std::runtime_error("cannot write " + path);
}

void writePng(const std::string& path, const cv::Mat& image) {
  if (!cv::imwrite(path, image)) throw std::runtime_error("cannot write " + path);
}

}  // namespace scene
