#include "report/measure/Crop.h"

#include <cstdint>

namespace polarline {
namespace {

int settingOf(const Json& document, const char* key) {
  const Json& settings = document["settings"];
  const auto found = settings.find(key);
  if (found == settings.end() || !found->is_number()) return 0;
  const auto number = found->get<double>();
  return number >= 1.0 && number <= INT16_MAX ? static_cast<int>(number) : 0;
}

}  // namespace

cv::Rect partLookedAt(const Json& document) {
  const cv::Size picture(document["cameras"]["width"].get<int>(), document["cameras"]["height"].get<int>());
  const cv::Size part(settingOf(document, "cropped_cols"), settingOf(document, "cropped_rows"));
  const bool is_cropped =
      settingOf(document, "crop") != 0 && !part.empty() && part.width <= picture.width && part.height <= picture.height;
  if (!is_cropped) return {{}, picture};
  return {cv::Point((picture.width - part.width) / 2, (picture.height - part.height) / 2), part};
}

}  // namespace polarline
