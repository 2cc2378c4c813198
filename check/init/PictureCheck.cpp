#include "check/init/PictureCheck.h"

#include <algorithm>
#include <map>
#include <opencv2/imgcodecs.hpp>

#include "check/set/PictureFault.h"
#include "polarline/errors.h"

namespace init {
namespace {

/// What is named of a long list.
constexpr std::size_t kMostNamed = 20;

struct Look {
  std::string path;
  cv::Size size;
  int type = 0;
};

std::string kindText(const Look& look) {
  const char* const depth = CV_MAT_DEPTH(look.type) == CV_8U ? "8" : CV_MAT_DEPTH(look.type) == CV_16U ? "16" : "other";
  return std::to_string(look.size.width) + "x" + std::to_string(look.size.height) + ", " +
         std::to_string(CV_MAT_CN(look.type)) + (CV_MAT_CN(look.type) == 1 ? " channel of " : " channels of ") + depth +
         " bits";
}

bool isUsable(int type) { return type == CV_8UC1 || type == CV_16UC1 || type == CV_8UC3 || type == CV_8UC4; }

cv::Mat decoded(const std::string& path) {
  try {
    return cv::imread(path, cv::IMREAD_UNCHANGED);
  } catch (const cv::Exception&) {  // More pixels than OpenCV takes.
    return {};
  }
}

std::string listed(const std::vector<std::string>& entries) {
  std::string text;
  for (std::size_t k = 0; k < entries.size() && k < kMostNamed; ++k) text += (k == 0 ? "" : ", ") + entries[k];
  return entries.size() > kMostNamed ? text + " and " + std::to_string(entries.size() - kMostNamed) + " more" : text;
}

/// All pictures in the order of the pairs, looked at.
class Looks {
 public:
  Looks(std::size_t all, const std::function<void(std::size_t, std::size_t)>& progress)
      : all_(all), progress_(progress) {}

  cv::Mat add(const std::string& path) {
    cv::Mat picture = decoded(path);
    if (picture.empty())
      undecodable_.push_back(path + " " + polarline::pictureFault(path).text);
    else if (polarline::isCutOffJpeg(path))
      undecodable_.push_back(path + " is cut off");
    else
      looks_.push_back({path, picture.size(), picture.type()});
    if (progress_) progress_(++done_, all_);
    return picture;
  }

  /// The look that most have. Throws for all that do not decode or differ.
  Look common() const {
    if (!undecodable_.empty()) throw polarline::InputError("pictures that can't be used: " + listed(undecodable_));
    Look most = mostFrequent();
    std::vector<std::string> others;
    for (const Look& look : looks_) {
      if (kindText(look) != kindText(most)) others.push_back(look.path + " (" + kindText(look) + ")");
    }
    if (!others.empty())
      throw polarline::InputError("pictures of one size and kind were wanted; most are " + kindText(most) + ", not " +
                                  listed(others));
    if (!isUsable(most.type))
      throw polarline::InputError(
          most.path, "is " + kindText(most) + "; wanted 8 or 16 bits of one channel, or 8 bits of three or four");
    return most;
  }

 private:
  Look mostFrequent() const {
    std::map<std::string, std::size_t> counts;
    for (const Look& look : looks_) ++counts[kindText(look)];
    return *std::ranges::max_element(looks_, {}, [&](const Look& look) { return counts.at(kindText(look)); });
  }

  std::size_t all_;
  std::size_t done_ = 0;
  const std::function<void(std::size_t, std::size_t)>& progress_;
  std::vector<Look> looks_;
  std::vector<std::string> undecodable_;
};

}  // namespace

CheckedPictures checkPictures(const std::vector<PicturePair>& pairs,
                              const std::function<void(std::size_t done, std::size_t all)>& progress) {
  CheckedPictures checked;
  Looks looks(2 * pairs.size(), progress);
  for (const auto& [left_path, right_path] : pairs) {
    const cv::Mat left = looks.add(left_path);
    const cv::Mat right = looks.add(right_path);
    if (&left_path == &pairs.front().first) checked.first = {left, right};
  }
  const Look common = looks.common();
  checked.size = common.size;
  checked.type = common.type;
  return checked;
}

}  // namespace init
