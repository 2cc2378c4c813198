#pragma once

#include <functional>
#include <opencv2/core.hpp>
#include <string>
#include <utility>
#include <vector>

namespace init {

/// What all pictures of a set have in common, and the first pair, as stored.
struct CheckedPictures {
  cv::Size size;
  int type = 0;  ///< OpenCV's, of one, three or four channels.
  std::pair<cv::Mat, cv::Mat> first;
};

/// Paths of a left and a right picture.
using PicturePair = std::pair<std::string, std::string>;

/// Decodes every picture, as stored. Throws `InputError` that names each one which can't be decoded, is of a kind that
/// no run takes (wanted: 8 or 16 bits of one channel, or 8 bits of three or four), or differs from most in size or
/// kind. `progress` may be empty.
CheckedPictures checkPictures(const std::vector<PicturePair>& pairs,
                              const std::function<void(std::size_t done, std::size_t all)>& progress);

}  // namespace init
