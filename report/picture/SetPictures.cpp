#include "report/picture/SetPictures.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <opencv2/imgproc.hpp>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/Pictures.h"
#include "polar/results/PairStatus.h"
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

constexpr const char* kNotRectified =
    ". The step that failed looked at the rectified picture, which can't be made again: the calibration is not where "
    "it "
    "was, or has changed";

constexpr std::string_view kLeftRole = "left/";

/// Of the evaluations, whose names stand for a step where the detection did not fail.
bool looksAtGiven(const std::string& step) { return step == "triangulation" || step == "board"; }

std::optional<FailedStep> stepOf(const cv::Mat& picture, const Detection& detection, const std::string& seen,
                                 const char* note) {
  const cv::Mat drawn = detection.found ? overlay(picture, detection) : ellipsesPicture(picture, detection);
  if (drawn.empty()) return std::nullopt;
  return FailedStep{{jpegUri(drawn), drawn.size()}, seen, detection.text + note};
}

/// An evaluation that fails ends the run with a pair that has no entry; its pictures are among the inputs, and of those
/// behind it some may be, too, as they are read ahead.
std::optional<std::string> endedBehind(const Json& document) {
  const auto code = document["status"].find("code");
  if (code == document["status"].end() || !code->is_null()) return std::nullopt;
  const Json& pairs = document["pairs"];
  const std::size_t last = pairs.empty() ? 0 : pairs.back()["index"].get<std::size_t>() + 1;
  std::optional<std::size_t> next;
  for (const Json& input : document["set"]["inputs"]) {
    const auto role = input["role"].get<std::string>();
    std::size_t index = 0;
    const char* const begin = role.data() + std::min(role.size(), kLeftRole.size());
    const bool is_left =
        role.starts_with(kLeftRole) && std::from_chars(begin, role.data() + role.size(), index).ec == std::errc();
    if (is_left && index >= last && (!next || index < *next)) next = index;
  }
  return next ? std::optional(std::to_string(*next)) : std::nullopt;
}

}  // namespace

SetPictures::SetPictures(const Json& document, const std::string& path, const cv::Rect& part,
                         const std::optional<KnownCameras>& cameras)
    : files_(document, path), rectifier_(document, cameras), part_(part) {
  for (const Json& each : document["pairs"]) {
    Pair pair;
    pair.index = std::to_string(each["index"].get<std::size_t>());
    pair.is_finished = each["state"] == "finished";
    const auto reason = each.find("reason");
    if (reason != each.end() && reason->is_object()) {
      pair.failed_side = (*reason)["side"].get<std::string>();
      pair.failed_step = (*reason)["step"].get<std::string>();
    }
    pairs_.push_back(pair);
  }
  // Which evaluation failed is not told; the pictures as they are suit all of them.
  if (auto behind = endedBehind(document)) pairs_.push_back({std::move(*behind), false, "", "triangulation"});
}

/// Empty where it can't be had.
cv::Mat SetPictures::read(const std::string& role) const {
  const auto path = files_.find(role);
  if (!path) return {};
  const cv::Mat picture = readPicture(*path);
  const cv::Rect whole({}, picture.size());
  return part_.empty() || (part_ & whole) != part_ ? picture : picture(part_).clone();
}

/// Where a detection failed, the run may have failed at the picture as it is or at the rectified one; the document does
/// not tell, but the first of them that fails here is the one. Of both or neither side the left one stands for the
/// pair.
std::optional<FailedStep> SetPictures::failedStep(std::size_t place, const cv::Mat& left, const cv::Mat& right) const {
  const Pair& pair = pairs_.at(place);
  const bool is_right = pair.failed_side == "right";
  const cv::Mat& given = is_right ? right : left;
  const auto target = files_.find("target");
  if (given.empty() || !target) return std::nullopt;
  const std::string seen = is_right ? "right picture" : "left picture";
  const Detection detection = detect(given, *target);
  const bool is_enough = detection.dots.size() >= kLeastSharedRaw;
  if (!rectifier_.hasRun() || looksAtGiven(pair.failed_step) || !is_enough) return stepOf(given, detection, seen, "");
  const auto rectified = rectifier_.of(place, left, right);
  if (!rectified) return stepOf(given, detection, seen, kNotRectified);
  const cv::Mat& failed = is_right ? rectified->right : rectified->left;
  return stepOf(failed, detect(failed, *target), "rectified " + seen, "");
}

PairPictures SetPictures::of(std::size_t place) const {
  if (place >= pairs_.size()) return {};
  const Pair& pair = pairs_[place];
  PairPictures pictures;
  try {
    const cv::Mat left = read("left/" + pair.index);
    const cv::Mat right = read("right/" + pair.index);
    pictures.left = pageOf(left);
    pictures.right = pageOf(right);
    if (!pair.is_finished) pictures.failed = failedStep(place, left, right);
  } catch (const std::exception&) {
    return pictures;  // A page without a picture is better than none.
  }
  return pictures;
}

}  // namespace polarline
