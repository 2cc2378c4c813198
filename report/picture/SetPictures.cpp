#include "report/picture/SetPictures.h"

#include <exception>
#include <opencv2/imgproc.hpp>

#include "platform/Pictures.h"
#include "polarline/detect.h"
#include "report/picture/JpegUri.h"

namespace polarline {
namespace {

/// 8-bit grey, as far as a picture can be brought to that; else empty.
cv::Mat greyOf(const cv::Mat& picture) {
  cv::Mat grey = picture;
  if (picture.channels() == 3) cv::cvtColor(picture, grey, cv::COLOR_BGR2GRAY);
  if (picture.channels() == 4) cv::cvtColor(picture, grey, cv::COLOR_BGRA2GRAY);
  if (grey.type() == CV_16UC1) grey = pictures::stretchTo8Bit(grey);
  return grey.type() == CV_8UC1 ? grey : cv::Mat();
}

std::optional<PagePicture> pageOf(const cv::Mat& picture) {
  const cv::Mat grey = greyOf(picture);
  if (grey.empty()) return std::nullopt;
  return PagePicture{jpegUri(grey), grey.size()};
}

}  // namespace

SetPictures::SetPictures(const Json& document, const std::string& path, const cv::Rect& part)
    : files_(document, path), part_(part) {
  for (const Json& each : document["pairs"]) {
    Pair pair;
    pair.index = std::to_string(each["index"].get<std::size_t>());
    pair.is_finished = each["state"] == "finished";
    const auto reason = each.find("reason");
    if (reason != each.end() && reason->is_object()) pair.failed_side = (*reason)["side"].get<std::string>();
    pairs_.push_back(pair);
  }
}

/// Empty where it can't be had.
cv::Mat SetPictures::read(const std::string& role) const {
  const auto path = files_.find(role);
  if (!path) return {};
  const cv::Mat picture = readPicture(*path);
  const cv::Rect whole({}, picture.size());
  return part_.empty() || (part_ & whole) != part_ ? picture : picture(part_).clone();
}

/// Of both or neither side the left one stands for the pair.
std::optional<FailedStep> SetPictures::failedStep(const Pair& pair, const cv::Mat& left, const cv::Mat& right) const {
  const cv::Mat& seen = pair.failed_side == "right" ? right : left;
  const auto target = files_.find("target");
  if (seen.empty() || !target) return std::nullopt;
  const Detection detection = detect(seen, *target);
  const cv::Mat drawn = detection.found ? overlay(seen, detection) : ellipsesPicture(seen, detection);
  if (drawn.empty()) return std::nullopt;
  return FailedStep{{jpegUri(drawn), drawn.size()}, detection.text};
}

PairPictures SetPictures::of(std::size_t place) const {
  const Pair& pair = pairs_.at(place);
  PairPictures pictures;
  try {
    const cv::Mat left = read("left/" + pair.index);
    const cv::Mat right = read("right/" + pair.index);
    pictures.left = pageOf(left);
    pictures.right = pageOf(right);
    if (!pair.is_finished) pictures.failed = failedStep(pair, left, right);
  } catch (const std::exception&) {
    return pictures;  // A page without a picture is better than none.
  }
  return pictures;
}

}  // namespace polarline
