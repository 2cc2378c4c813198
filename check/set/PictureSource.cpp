#include "check/set/PictureSource.h"

#include <utility>

#include "check/set/Fingerprint.h"
#include "check/set/PictureFault.h"
#include "platform/Files.h"

namespace polarline {

ListedPictures::ListedPictures(std::vector<ListedPair> pairs, std::size_t first)
    : pairs_(std::move(pairs)), first_(first) {}

std::string ListedPictures::pathOf(std::size_t index, bool left) const {
  const ListedPair& pair = pairs_.at(index);
  return files::nativePath(pair.folder + (left ? pair.left : pair.right));
}

ListedPictures::Pictures ListedPictures::read(std::size_t index) const {
  const std::string left = pathOf(index, true);
  const std::string right = pathOf(index, false);
  return {files::readImage(left),
          files::readImage(right),
          sha256OfFile(left),
          sha256OfFile(right),
          {isCutOffJpeg(left), isCutOffJpeg(right)}};
}

std::pair<cv::Mat, cv::Mat> ListedPictures::take(std::size_t index) {
  Pictures pictures = ahead_.valid() ? ahead_.get() : read(index);
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
      const std::string path = pathOf(index, left);
      inputs_.push_back({(left ? "left/" : "right/") + number, path, sha256OfFile(path)});
    }
  }
  return inputs_;
}

}  // namespace polarline
