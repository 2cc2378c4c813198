#include "diagnose/uncertainty/PairNoise.h"

#include <Eigen/LU>
#include <cmath>

#include "diagnose/uncertainty/LocalTrend.h"

namespace {

constexpr std::size_t kLeastDots = 6;

using Side = cv::Point2f SharedDot::*;

/// Below it the centres lie on a line: area that they span by that of a round cloud of their extent.
constexpr double kLeastArea = 1e-12;

/// The linear part of the map that takes the measured centres closest to the dots.
std::optional<Eigen::Matrix2d> mapOnto(const std::vector<SharedDot>& dots, Side side, const CentreNoise& measured) {
  Eigen::Matrix2Xd from(2, static_cast<Eigen::Index>(dots.size()));
  Eigen::Matrix2Xd to(2, static_cast<Eigen::Index>(dots.size()));
  Eigen::Index shared = 0;
  for (const SharedDot& dot : dots) {
    const auto found = measured.find(dot.id);
    if (found == measured.end()) continue;
    from.col(shared) << found->second.centre[0], found->second.centre[1];
    to.col(shared++) << (dot.*side).x, (dot.*side).y;
  }
  if (shared < static_cast<Eigen::Index>(kLeastDots)) return std::nullopt;
  const Eigen::Vector2d from_mean = from.leftCols(shared).rowwise().mean();
  const Eigen::Vector2d to_mean = to.leftCols(shared).rowwise().mean();
  Eigen::Matrix2d spread = Eigen::Matrix2d::Zero();
  Eigen::Matrix2d common = Eigen::Matrix2d::Zero();
  for (Eigen::Index k = 0; k < shared; ++k) {
    const Eigen::Vector2d way = from.col(k) - from_mean;
    spread += way * way.transpose();
    common += (to.col(k) - to_mean) * way.transpose();
  }
  if (!(spread.determinant() > kLeastArea * spread.trace() * spread.trace())) return std::nullopt;
  return common * spread.inverse();
}

CentreNoise scatterOf(const std::vector<SharedDot>& dots, Side side, int columns) {
  std::vector<std::int32_t> ids;
  Eigen::MatrixXd pixels(2, static_cast<Eigen::Index>(dots.size()));
  for (const SharedDot& dot : dots) {
    pixels.col(static_cast<Eigen::Index>(ids.size())) << (dot.*side).x, (dot.*side).y;
    ids.push_back(dot.id);
  }
  const LocalTrend trend(BoardGrid(ids, columns));
  const Eigen::MatrixXd scatter = trend.scatter(pixels);
  const double mean_square = scatter.squaredNorm() / static_cast<double>(dots.size());
  const double whole = mean_square > 0.0 ? std::sqrt(trend.variance(scatter) / mean_square) : 1.0;
  CentreNoise noise;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    const Eigen::Vector2d shift = whole * scatter.col(static_cast<Eigen::Index>(k));
    noise.emplace(dots[k].id, NoisyCentre{cv::Point2d(dots[k].*side), cv::Vec2d(shift.x(), shift.y())});
  }
  return noise;
}

CentreNoise noiseOf(const std::vector<SharedDot>& dots, Side side, const CentreNoise& measured, int columns) {
  const auto map = mapOnto(dots, side, measured);
  if (!map) return scatterOf(dots, side, columns);
  CentreNoise noise = measured;
  for (auto& [id, centre] : noise) {
    const Eigen::Vector2d shift = *map * Eigen::Vector2d(centre.shift[0], centre.shift[1]);
    centre.shift = {shift.x(), shift.y()};
  }
  return noise;
}

}  // namespace

MeasuredNoise pairNoise(const cv::Mat& left, const cv::Mat& right, const PairWarps& warps, const std::string& target,
                        const DetectionMemory& known, std::uint64_t seed) {
  constexpr std::size_t kLarge = 1U << 21U;  // Pixels.
  SeededRandom random(seed);
  const SideNoise first = centreNoise(left, warps.left, target, known, random);
  const bool is_large = left.total() > kLarge && left.size() == right.size() && !first.raw.empty();
  const SideNoise second = is_large ? first : centreNoise(right, warps.right, target, known, random);
  return {{first.raw, second.raw}, {first.rectified, second.rectified}};
}

std::optional<PairNoise> noiseOf(const std::vector<SharedDot>& dots, const PairNoise& measured, int columns) {
  if (dots.size() < kLeastDots) return std::nullopt;
  return PairNoise{noiseOf(dots, &SharedDot::left, measured.left, columns),
                   noiseOf(dots, &SharedDot::right, measured.right, columns)};
}
