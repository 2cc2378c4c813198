#include "check/set/GivenPictures.h"

#include <fmt/format.h>

#include <opencv2/core.hpp>
#include <string>
#include <utility>

#include "polarline/errors.h"

namespace polarline {
namespace {

void requirePicture(const cv::Mat& picture, const std::string& name) {
  if (picture.empty()) throw InputError(name, "is empty; a picture was wanted");
  const bool is_known = picture.depth() == CV_8U || picture.depth() == CV_16U;
  if (is_known && (picture.channels() == 1 || picture.channels() == 3 || picture.channels() == 4)) return;
  throw InputError(name, fmt::format("has {} channels of {}; 1, 3 or 4 of CV_8U or CV_16U were wanted",
                                     picture.channels(), cv::depthToString(picture.depth())));
}

}  // namespace

std::vector<ListedPair> listedPairs(const Pictures& pictures) {
  if (pictures.left.size() != pictures.right.size())
    throw InputError("pictures", fmt::format("{} left and {} right ones; as many of each were wanted",
                                             pictures.left.size(), pictures.right.size()));
  if (pictures.left.empty()) throw InputError("pictures", "none; one pair at least was wanted");
  std::vector<ListedPair> pairs;
  for (std::size_t k = 0; k < pictures.left.size(); ++k) {
    ListedPair pair{0, fmt::format("left[{}]", k), fmt::format("right[{}]", k), ""};
    requirePicture(pictures.left[k], pair.left);
    requirePicture(pictures.right[k], pair.right);
    pairs.push_back(std::move(pair));
  }
  return pairs;
}

}  // namespace polarline
