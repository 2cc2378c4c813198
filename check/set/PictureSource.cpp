#include "check/set/PictureSource.h"

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "check/set/Fingerprint.h"
#include "check/set/PictureFault.h"
#include "platform/Files.h"

namespace polarline {
namespace {

struct ReadPicture {
  cv::Mat picture;
  std::string hash;
  bool is_cut_off = false;
};

/// What tells that a file was changed or was away: when it was written and how long it is.
std::pair<std::filesystem::file_time_type, std::uintmax_t> stateOf(const std::string& path) {
  std::error_code ignored;
  return {std::filesystem::last_write_time(path, ignored), std::filesystem::file_size(path, ignored)};
}

/// The file is opened once to be decoded and once to be hashed: both must be of one content. One that changes all the
/// time is none.
ReadPicture readWhole(const std::string& path) {
  constexpr int kTries = 3;
  for (int k = 0; k < kTries; ++k) {
    const auto before = stateOf(path);
    ReadPicture read{files::readImage(path), sha256OfFile(path), isCutOffJpeg(path)};
    const bool was_away = read.picture.empty() != read.hash.empty() && k + 1 < kTries;  // Or it is no picture.
    if (stateOf(path) == before && !was_away) return read;
  }
  return {};
}

}  // namespace

ListedPictures::ListedPictures(std::vector<ListedPair> pairs, std::size_t first, const Pictures* given)
    : pairs_(std::move(pairs)), first_(first), given_(given) {}

/// OpenCV's filters read beyond the edges of a picture that they know to be a part of another; from a file there is
/// nothing beyond.
cv::Mat ListedPictures::given(std::size_t index, bool left) const {
  const cv::Mat& picture = (left ? given_->left : given_->right).at(first_ + index);
  return {picture.rows, picture.cols, picture.type(), picture.data, picture.step[0]};
}

std::string ListedPictures::hashOf(std::size_t index, bool left) const {
  return given_ != nullptr ? sha256OfPicture(given(index, left)) : sha256OfFile(pathOf(index, left));
}

std::string ListedPictures::pathOf(std::size_t index, bool left) const {
  if (given_ != nullptr) return {};
  const ListedPair& pair = pairs_.at(index);
  return files::nativePath(pair.folder + (left ? pair.left : pair.right));
}

ListedPictures::TakenPair ListedPictures::read(std::size_t index) const {
  if (given_ != nullptr)
    return {given(index, true), given(index, false), hashOf(index, true), hashOf(index, false), {false, false}};
  ReadPicture left = readWhole(pathOf(index, true));
  ReadPicture right = readWhole(pathOf(index, false));
  return {std::move(left.picture),
          std::move(right.picture),
          std::move(left.hash),
          std::move(right.hash),
          {left.is_cut_off, right.is_cut_off}};
}

std::pair<cv::Mat, cv::Mat> ListedPictures::take(std::size_t index) {
  TakenPair pictures = ahead_.valid() ? ahead_.get() : read(index);
  if (index + 1 < pairs_.size()) ahead_ = std::async(std::launch::async, [this, index] { return read(index + 1); });
  const std::string number = std::to_string(first_ + index);
  inputs_.push_back({"left/" + number, pathOf(index, true), std::move(pictures.left_hash)});
  inputs_.push_back({"right/" + number, pathOf(index, false), std::move(pictures.right_hash)});
  last_cut_off_ = pictures.cut_off;
  last_sizes_ = {pictures.left.size(), pictures.right.size()};
  last_ = {pictures.left, pictures.right};
  if (size_.empty()) size_ = pictures.left.size();
  has_colour_ = has_colour_ || pictures.left.channels() > 1 || pictures.right.channels() > 1;
  return {std::move(pictures.left), std::move(pictures.right)};
}

std::vector<SetInput> ListedPictures::inputs() {
  if (ahead_.valid()) ahead_.wait();
  for (std::size_t index = inputs_.size() / 2; index < pairs_.size(); ++index) {
    const std::string number = std::to_string(first_ + index);
    for (const bool left : {true, false}) {
      inputs_.push_back({(left ? "left/" : "right/") + number, pathOf(index, left), hashOf(index, left)});
    }
  }
  return inputs_;
}

}  // namespace polarline
