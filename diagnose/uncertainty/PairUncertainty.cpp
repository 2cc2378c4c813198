#include "diagnose/uncertainty/PairUncertainty.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "diagnose/uncertainty/DistanceRepeater.h"
#include "diagnose/uncertainty/DotScene.h"
#include "diagnose/uncertainty/FitRepeater.h"
#include "diagnose/uncertainty/Interval.h"
#include "diagnose/uncertainty/ResidualRepeater.h"
#include "diagnose/uncertainty/RowRepeater.h"
#include "diagnose/uncertainty/SpacingRepeater.h"

namespace {

using polarline::FigureUncertainty;
using Repeaters = std::vector<std::unique_ptr<FigureRepeater>>;

constexpr std::size_t kLeastDotsOfPair = 6;

constexpr std::array kGroupsOfMeans = {FigureGroup::kResiduals, FigureGroup::kRows,      FigureGroup::kSpacing,
                                       FigureGroup::kDistances, FigureGroup::kAlignment, FigureGroup::kProjection,
                                       FigureGroup::kSpace};

/// Fewer for boards of many dots, whose figures need fewer to be known as well.
std::size_t repetitionsFor(std::size_t dots) {
  constexpr std::size_t kMost = 400;
  constexpr std::size_t kLeast = 200;
  constexpr std::size_t kDots = 600'000;
  return std::clamp(kDots / dots, kLeast, kMost);
}

std::vector<std::int32_t> idsOf(const std::vector<SharedDot>& dots, std::size_t count) {
  std::vector<std::int32_t> ids;
  for (std::size_t k = 0; k < count; ++k) ids.push_back(dots[k].id);
  return ids;
}

void repeat(const DotScene& scene, Repeaters& repeaters, SeededRandom& random,
            std::vector<FigureUncertainty>& uncertainties) {
  if (repeaters.empty()) return;
  Repetition repetition;
  for (std::size_t k = repetitionsFor(scene.grid.count()); k > 0; --k) {
    scene.repeat(random, repetition);
    for (const auto& each : repeaters) each->add(repetition);
  }
  for (const auto& each : repeaters) {
    for (RepeatedFigure& figure : each->figures) {
      if (auto uncertainty = uncertaintyOf(std::move(figure))) uncertainties.push_back(*std::move(uncertainty));
    }
  }
}

Eigen::Matrix3Xd positionsOf(const PairObservation& seen, std::size_t count) {
  Eigen::Matrix3Xd positions(3, static_cast<Eigen::Index>(count));
  for (std::size_t k = 0; k < count; ++k) {
    const cv::Point3f& point = seen.positions[k];
    positions.col(static_cast<Eigen::Index>(k)) << point.x, point.y, point.z;
  }
  return positions;
}

/// By the ids that the figures go by, which may run ahead of the dots.
Eigen::Matrix3Xd truthOf(const PairEvaluator& evaluator, std::size_t count) {
  const std::vector<PairPointRecord>& records = evaluator.figures.pairPoints;
  const bool has_records = evaluator.figures.isMeasured(FigureGroup::kDistances) && records.size() == count;
  Eigen::Matrix3Xd truth(3, static_cast<Eigen::Index>(count));
  for (std::size_t k = 0; k < count; ++k) {
    const std::int32_t id = has_records ? records[k].id : evaluator.seen.raw[k].id;
    const cv::Point3f& point = evaluator.boardPoints.at(static_cast<std::size_t>(id));
    truth.col(static_cast<Eigen::Index>(k)) << point.x, point.y, point.z;
  }
  return truth;
}

void repeatRaw(const PairEvaluator& evaluator, const PairNoise& noise, int columns, SeededRandom& random,
               std::vector<FigureUncertainty>& uncertainties) {
  const PairObservation& seen = evaluator.seen;
  const std::size_t count = std::min(seen.raw.size(), seen.positions.size());
  if (count < kLeastDotsOfPair) return;
  DotScene scene(idsOf(seen.raw, count), columns, noise.left, noise.right);
  for (std::size_t k = 0; k < count; ++k) scene.slopes.push_back(slopeAt(seen.positions[k], seen.cameras));
  const Eigen::Matrix3Xd positions = withoutNoise(positionsOf(seen, count), scene.trend, scene.positionVariance());

  const PairFigures& figures = evaluator.figures;
  const auto measured = [&](FigureGroup group) { return figures.isMeasured(group); };
  Repeaters repeaters;
  if (measured(FigureGroup::kResiduals) && seen.residuals.size() == count && seen.predicted_right.size() == count) {
    repeaters.push_back(std::make_unique<ResidualRepeater>(evaluator, scene));
  }
  if (positions.allFinite() && (measured(FigureGroup::kDistances) || measured(FigureGroup::kSpace))) {
    const Eigen::Matrix3Xd truth = truthOf(evaluator, count);
    if (measured(FigureGroup::kDistances)) {
      repeaters.push_back(std::make_unique<DistanceRepeater>(evaluator, positions, truth));
    }
    repeaters.push_back(std::make_unique<FitRepeater>(evaluator, scene, positions, truth));
  }
  repeat(scene, repeaters, random, uncertainties);
}

void repeatRectified(const PairEvaluator& evaluator, const PairNoise& noise, int columns, SeededRandom& random,
                     std::vector<FigureUncertainty>& uncertainties) {
  const PairObservation& seen = evaluator.seen;
  if (seen.rectified.size() < kLeastDotsOfPair) return;
  DotScene scene(idsOf(seen.rectified, seen.rectified.size()), columns, noise.left, noise.right);
  Repeaters repeaters;
  if (evaluator.figures.isMeasured(FigureGroup::kSpacing)) {
    for (const SharedDot& dot : seen.rectified) scene.slopes.push_back(slopeAt(dot, seen.Q));
    repeaters.push_back(std::make_unique<SpacingRepeater>(evaluator, scene));
  }
  if (evaluator.figures.isMeasured(FigureGroup::kRows)) {
    repeaters.push_back(std::make_unique<RowRepeater>(evaluator, scene));
  }
  repeat(scene, repeaters, random, uncertainties);
}

}  // namespace

bool hasMeans(const PairFigures& figures) {
  return std::ranges::any_of(kGroupsOfMeans, [&](FigureGroup group) { return figures.isMeasured(group); });
}

std::vector<FigureUncertainty> pairUncertainty(const PairEvaluator& evaluator, const MeasuredNoise& noise, int columns,
                                               std::uint64_t seed) {
  std::vector<FigureUncertainty> uncertainties;
  if (columns < 1) return uncertainties;
  SeededRandom random(seed);
  const PairObservation& seen = evaluator.seen;
  if (const auto raw = noiseOf(seen.raw, noise.raw, columns))
    repeatRaw(evaluator, *raw, columns, random, uncertainties);
  const PairNoise of_rectified = {noise.rectified.left.empty() ? noise.raw.left : noise.rectified.left,
                                  noise.rectified.right.empty() ? noise.raw.right : noise.rectified.right};
  if (const auto rectified = noiseOf(seen.rectified, of_rectified, columns)) {
    repeatRectified(evaluator, *rectified, columns, random, uncertainties);
  }
  return uncertainties;
}
