#include "diagnose/causes/AlikeErrors.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace {

/// Blocks that the fit leaves free; with fewer the ratio says little. Of the 16 of a single pair fewer than ten are
/// left, and in smaller blocks neighbours do not show how much they have in common.
constexpr double kFewestFree = 5.0;

struct Block {
  double sum = 0.0;
  double squares = 0.0;
  CauseVector slopes = CauseVector::Zero();
  double rows = 0.0;  ///< Sum in pixels.
  double row_squares = 0.0;
  double count = 0.0;
};

using Blocks = std::map<std::tuple<std::size_t, int, int>, Block>;

class Extent {
 public:
  explicit Extent(const std::vector<RowDot>& dots) {
    for (const RowDot& dot : dots) {
      low_ = {std::min(low_.x, dot.left.x), std::min(low_.y, dot.left.y)};
      high_ = {std::max(high_.x, dot.left.x), std::max(high_.y, dot.left.y)};
    }
  }
  /// Cell of a point among cells x cells.
  std::pair<int, int> cellOf(const cv::Point2d& point, int cells) const {
    return {cellOf(point.x, low_.x, high_.x, cells), cellOf(point.y, low_.y, high_.y, cells)};
  }

 private:
  static int cellOf(double value, double low, double high, int cells) {
    if (!(high > low)) return 0;
    return std::min(static_cast<int>(cells * (value - low) / (high - low)), cells - 1);
  }

  cv::Point2d low_{1e9, 1e9};
  cv::Point2d high_{-1e9, -1e9};
};

Blocks blocksOf(const std::vector<RowDot>& dots, const RowFit& fit, int cells, bool is_each_pair) {
  const Extent extent(dots);
  Blocks blocks;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    const auto place = static_cast<Eigen::Index>(k);
    const double trust = fit.trust[place];
    if (trust <= 0.0) continue;
    const auto [column, row] = extent.cellOf(dots[k].left, cells);
    Block& block = blocks[{is_each_pair ? dots[k].pair : 0, column, row}];
    const double sd = fit.scale * dots[k].sd;
    const double part = trust * fit.rows[place] / sd;
    block.slopes += trust * fit.slopes.row(place).transpose() / sd;
    block.sum += part;
    block.squares += part * part;
    block.rows += fit.rows[place];
    block.row_squares += fit.rows[place] * fit.rows[place];
    block.count += 1.0;
  }
  return blocks;
}

/// The fit takes a part of each block's sum away, more of it the larger the blocks.
double inflationOf(const Blocks& blocks, const CauseMatrix& covariance) {
  double sums = 0.0;
  double expected = 0.0;
  double free = 0.0;
  for (const auto& [place, block] : blocks) {
    sums += block.sum * block.sum;
    const double left = block.squares - block.slopes.dot(covariance * block.slopes);
    expected += left;
    free += block.squares > 0.0 ? left / block.squares : 0.0;
  }
  return free < kFewestFree ? 1.0 : sums / expected;
}

/// Of the variance of block means that which single errors do not account for.
double smoothRms(const Blocks& blocks) {
  double variance = 0.0;
  double count = 0.0;
  for (const auto& [place, block] : blocks) {
    if (block.count < 2.0) continue;
    const double mean = block.rows / block.count;
    const double own = (block.row_squares / block.count - mean * mean) / (block.count - 1.0);
    variance += block.count * (mean * mean - own);
    count += block.count;
  }
  return count > 0.0 ? std::sqrt(std::max(0.0, variance / count)) : 0.0;
}

}  // namespace

AlikeErrors alikeErrors(const std::vector<RowDot>& dots, const RowFit& fit) {
  AlikeErrors alike;
  const CauseMatrix covariance = fit.information.inverse();
  for (const int cells : {2, 4, 8, 16}) {
    for (const bool is_each_pair : {true, false}) {
      const Blocks blocks = blocksOf(dots, fit, cells, is_each_pair);
      alike.inflation = std::max(alike.inflation, inflationOf(blocks, covariance));
      if (cells == 4) alike.smooth_rms = std::max(alike.smooth_rms, smoothRms(blocks));
    }
  }
  return alike;
}
