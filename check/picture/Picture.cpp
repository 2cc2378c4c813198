#include <filesystem>
#include <opencv2/imgcodecs.hpp>
#include <system_error>
#include <vector>

#include "check/set/PictureFault.h"
#include "platform/Files.h"
#include "polarline/detect.h"
#include "polarline/errors.h"

namespace polarline {

cv::Mat readPicture(const std::string& path) {
  std::error_code failure;
  const std::filesystem::file_status status = std::filesystem::status(path, failure);
  if (!std::filesystem::exists(status)) throw InputError(path, "there is no such file");
  if (std::filesystem::is_directory(status)) throw InputError(path, "is a folder; a picture was wanted");
  cv::Mat image;
  try {
    image = files::readImage(path);
  } catch (const cv::Exception& error) {
    throw InputError(path, "can't be read as a picture: " + error.err);
  }
  if (image.empty()) throw InputError(path, pictureFault(path).text + "; a PNG, TIFF, BMP, PGM or JPEG was wanted");
  if (isCutOffJpeg(path)) throw InputError(path, "is cut off; a whole picture was wanted");
  return image;
}

std::string pngOf(const cv::Mat& picture) {
  std::vector<unsigned char> bytes;
  cv::imencode(".png", picture, bytes);
  return {bytes.begin(), bytes.end()};
}

}  // namespace polarline
