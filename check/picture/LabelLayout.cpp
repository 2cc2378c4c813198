#include "check/picture/LabelLayout.h"

#include <array>

namespace {

/// From a place to the nearest corner of its label.
constexpr int kGap = 2;

std::array<cv::Rect, 4> boxesAt(const LabelWish& wish) {
  const int right = wish.place.x + kGap;
  const int left = wish.place.x - kGap - wish.size.width;
  const int below = wish.place.y + kGap;
  const int above = wish.place.y - kGap - wish.size.height;
  return {{{{right, below}, wish.size},
           {{right, above}, wish.size},
           {{left, below}, wish.size},
           {{left, above}, wish.size}}};
}

/// The part of a canvas that is taken.
class Room {
 public:
  explicit Room(const cv::Size& canvas) : taken_(cv::Mat::zeros(canvas, CV_8UC1)) {}

  bool take(const cv::Rect& box) {
    const cv::Rect all({0, 0}, taken_.size());
    if ((box & all) != box || cv::countNonZero(taken_(box)) > 0) return false;
    taken_(box) = 1;
    return true;
  }

 private:
  cv::Mat taken_;
};

}  // namespace

std::vector<Label> layOut(const std::vector<LabelWish>& wishes, const cv::Size& canvas) {
  Room room(canvas);
  std::vector<Label> labels;
  for (const LabelWish& wish : wishes) {
    for (const cv::Rect& box : boxesAt(wish)) {
      if (!room.take(box)) continue;
      labels.push_back({wish.text, box});
      break;
    }
  }
  return labels;
}
