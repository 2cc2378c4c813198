#pragma once

#include <Eigen/Core>
#include <algorithm>
#include <array>
#include <cstddef>

#include "refine/edge/EdgeDeparture.h"
#include "refine/edge/EdgeModel.h"
#include "refine/edge/Lanes.h"

namespace refine {

/// Pixels of a mark and what a model says of each, column by column, so that one instruction works on several pixels.
/// Single precision: coordinates are taken from a pixel nearby, and a grey's rounding is far below the noise. The
/// memory grows with the largest mark and is used again.
class EdgeTable {
 public:
  using Column = Eigen::ArrayXf;
  using Slopes = Eigen::Matrix<float, Eigen::Dynamic, static_cast<int>(EdgeModel::kMostUnknowns)>;

  void clear(const cv::Point& origin);
  void add(int column, int row, float grey) {
    if (size_ + kSpare >= x_.size()) grow();
    x_.data()[size_] = static_cast<float>(column - origin_.x);
    y_.data()[size_] = static_cast<float>(row - origin_.y);
    grey_.data()[size_] = grey;
    ++size_;
  }
  /// Adds every `kStep`-th pixel of a row, from a column on, so many. `kAtOnce` are read and written however few they
  /// are, as to stop at the right one takes longer: as many must follow in the picture.
  template <std::size_t kStep, std::size_t kAtOnce, typename Pixel>
  void addRun(const Pixel* greys_of_row, int column, int row, int count) {
    while (size_ + count + kSpare > x_.size()) grow();
    const auto y = static_cast<float>(row - origin_.y);
    auto x = static_cast<float>(column - origin_.x);
    const Pixel* from = greys_of_row + column;
    Eigen::Index to = size_;
    size_ += count;
    do {
      std::array<float, kAtOnce> xs, greys;
      for (std::size_t k = 0; k < kAtOnce; ++k) xs[k] = x + static_cast<float>(kStep * k);
      for (std::size_t k = 0; k < kAtOnce; ++k) greys[k] = static_cast<float>(from[kStep * k]);
      std::copy(xs.begin(), xs.end(), x_.data() + to);
      std::fill_n(y_.data() + to, kAtOnce, y);
      std::copy(greys.begin(), greys.end(), grey_.data() + to);
      x += static_cast<float>(kStep * kAtOnce);
      from += kStep * kAtOnce;
      to += kAtOnce;
    } while (to < size_);
  }
  /// Every n-th pixel of another table, from its first on.
  void takeEvery(Eigen::Index n, const EdgeTable& other);
  Eigen::Index size() const { return size_; }
  const cv::Point& origin() const { return origin_; }
  cv::Point pixel(Eigen::Index i) const;

  /// What was seen.
  auto grey() const { return grey_.head(size_); }

  /// Grey of a model at each pixel, its slopes by the unknowns in their order, and the signed distance from its nearest
  /// edge, outwards positive, in pixels.
  ///
  /// The edge of a circle much larger than its blur is that of a straight line, Phi(-t / s). The next term, of
  /// curvature, moves it by s^2 / (2 r) on all sides alike and so leaves the centre alone. Phi after Abramowitz and
  /// Stegun 1964, 7.1.26, right to 1.5e-7. `beside`: what the edges have beside that, or none.
  void evaluate(const EdgeModel& model, const EdgeDeparture* beside = nullptr);
  auto modelGrey() const { return model_.head(size_); }
  auto distance() const { return distance_.head(size_); }
  auto slopes(Eigen::Index unknowns) const { return slopes_.topLeftCorner(size_, unknowns); }
  /// The slopes by one unknown; three zeros follow after the last pixel's.
  const float* slopeOf(Eigen::Index unknown) const { return slopes_.col(unknown).data(); }
  /// From one unknown's slopes to the next one's.
  Eigen::Index stride() const { return slopes_.rows(); }

 private:
  /// Whole lanes may be read and written behind the last pixel.
  static constexpr Eigen::Index kSpare = kLanes;

  void grow();

  cv::Point origin_;
  Eigen::Index size_ = 0;
  Column x_, y_, grey_, model_, distance_;
  Slopes slopes_;
};

}  // namespace refine
