#include "report/measure/Coverage.h"

#include <algorithm>
#include <cmath>

namespace polarline {
namespace {

/// Along the longer side: fine enough to see a bare corner.
constexpr int kCells = 16;

}  // namespace

Coverage::Coverage(const cv::Size& picture) : picture_(picture) {
  if (picture.empty()) return;
  const double cell = static_cast<double>(std::max(picture.width, picture.height)) / kCells;
  columns_ = std::max(1, static_cast<int>(std::lround(picture.width / cell)));
  rows_ = std::max(1, static_cast<int>(std::lround(picture.height / cell)));
  dots_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), 0);
}

void Coverage::add(const std::vector<double>& x, const std::vector<double>& y) {
  for (std::size_t k = 0; k < std::min(x.size(), y.size()); ++k) {
    // The first pixel's middle is 0, its edge half a pixel before.
    const double column = std::floor((x[k] + 0.5) / picture_.width * columns_);
    const double row = std::floor((y[k] + 0.5) / picture_.height * rows_);
    const bool is_inside = column >= 0.0 && column < columns_ && row >= 0.0 && row < rows_;
    if (is_inside)
      ++dots_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column)];
  }
}

double Coverage::share() const {
  if (dots_.empty()) return 0.0;
  const auto covered = dots_.size() - static_cast<std::size_t>(std::ranges::count(dots_, 0));
  return static_cast<double>(covered) / static_cast<double>(dots_.size());
}

}  // namespace polarline
