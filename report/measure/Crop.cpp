#include "report/measure/Crop.h"

#include <cstdint>

#include "report/read/Settings.h"

namespace polarline {
namespace {

/// 0 for what is not a number of pixels.
int pixelsOf(const Json& document, const char* key) {
  const double number = settingOf(document, key);
  return number >= 1.0 && number <= INT16_MAX ? static_cast<int>(number) : 0;
}

}  // namespace

cv::Rect partLookedAt(const Json& document) {
  const cv::Size picture(document["cameras"]["width"].get<int>(), document["cameras"]["height"].get<int>());
  const cv::Size part(pixelsOf(document, "cropped_cols"), pixelsOf(document, "cropped_rows"));
  const bool is_cropped = settingOf(document, "crop") != 0.0 && !part.empty() && part.width <= picture.width &&
                          part.height <= picture.height;
  if (!is_cropped) return {{}, picture};
  return {cv::Point((picture.width - part.width) / 2, (picture.height - part.height) / 2), part};
}

}  // namespace polarline
