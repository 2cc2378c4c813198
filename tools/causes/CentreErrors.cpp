#include "tools/causes/CentreErrors.h"

cv::Point2d OwnErrors::operator()(int /*row*/, int /*column*/) {
  const double x = sd_ * random_.normal();
  return {x, sd_ * random_.normal()};
}

cv::Point2d SharedErrors::operator()(int row, int column) {
  constexpr int kMostColumns = 1000;
  is_left_ = !is_left_;
  if (is_left_) {
    const int place = row * kMostColumns + column;
    if (place <= last_place_) shared_.clear();  // The next pair.
    last_place_ = place;
  }
  const cv::Point2d shared = shared_.try_emplace({row / 3, column / 3, is_left_ ? 0 : 1}, own_(0, 0)).first->second;
  return sd_ * (0.8 * shared + 0.6 * own_(0, 0));
}
