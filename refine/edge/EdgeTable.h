#pragma once

#include <Eigen/Core>

#include "refine/edge/EdgeDeparture.h"
#include "refine/edge/EdgeModel.h"

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

 private:
  static constexpr Eigen::Index kSpare = 3;

  void grow();
  void placePixels(const EdgeModel& model);
  void addEdge(const EdgeModel& model, std::size_t edge, const EdgeDeparture* beside);
  void formSlopes(const EdgeModel& model);

  cv::Point origin_;
  Eigen::Index size_ = 0;
  Column x_, y_, grey_, model_, distance_;
  Column nx_, ny_, reach_, along_, light_;          ///< Of the model's outline and light.
  Column away_, share_, bell_;                      ///< Of the edge at hand: signed distance, share of ink, its slope.
  Column covered_, by_along_, by_reach_, by_blur_;  ///< Share of ink and its slopes.
  Slopes slopes_;
};

}  // namespace refine
