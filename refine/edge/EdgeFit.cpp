#include "refine/edge/EdgeFit.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/Median.h"
#include "refine/edge/EdgePixels.h"

namespace refine {
namespace {

constexpr int kSteps = 12;
/// Pixels. The method's error falls to some hundredths with each step: what is left is some ten-thousandths.
constexpr double kSettled = 0.02;
/// Pixels that do for a first step, and from how many on there is one.
constexpr Eigen::Index kSome = 64, kMany = 72;
constexpr double kLongestStep = 0.5;  ///< Pixels.
constexpr float kStartOff = 0.15F;    ///< Pixels; what an outline may well be off by at first.
constexpr double kSharpest = 0.2;     ///< Pixels; a pixel's own width blurs by 0.29.
constexpr double kSoftest = 8.0;
constexpr float kTukey = 6.0F;  ///< Standard deviations; 99 of 100 parts of the efficiency with Gaussian noise.
constexpr float kOutlier = 5.0F;
/// Of the contrast: what the model itself may be off by before a pixel counts as covered.
constexpr double kModelError = 0.02;
constexpr double kLeastScale = 1e-3;  ///< Of the contrast.
constexpr double kMedianToSigma = 1.4826;
constexpr double kFlat = 2.0;  ///< Standard deviations of the blur: hardly anything of an edge beyond.

constexpr int kMost = static_cast<int>(EdgeModel::kMostUnknowns);
using Normal = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, 0, kMost, kMost>;
using Vector = Eigen::Matrix<double, Eigen::Dynamic, 1, 0, kMost, 1>;

/// Paper and ink by least squares with the outline as it stands.
bool guessGreys(EdgeModel& model, EdgeTable& table) {
  model.paper = 0.0;
  model.ink = 1.0;
  table.evaluate(model);
  const auto n = static_cast<double>(table.size());
  const auto covered = table.modelGrey().cast<double>(), grey = table.grey().cast<double>();
  const double c = covered.sum(), cc = covered.square().sum(), g = grey.sum(), cg = (covered * grey).sum();
  const double determinant = n * cc - c * c;
  if (!(determinant > 1e-3 * n)) return false;
  model.paper = (cc * g - c * cg) / determinant;
  model.ink = model.paper + (n * cg - c * g) / determinant;
  return model.paper != model.ink;
}

/// Scale of the residuals on the edge, where a model that is off shows.
NoiseLevel noiseOfResiduals(const EdgeTable& table, const EdgeModel& model, EdgeFitting& work) {
  work.sorted.clear();
  const auto on_edge = static_cast<float>(kOnEdge * model.blur);
  for (Eigen::Index i = 0; i < table.size(); ++i) {
    if (std::abs(table.distance()(i)) < on_edge) work.sorted.push_back(std::abs(work.residuals(i)));
  }
  NoiseLevel noise;
  if (work.sorted.empty()) return noise;
  const float middle = rank::upperMedian(work.sorted);
  const double least = kLeastScale * std::abs(model.paper - model.ink);
  noise.base = std::pow(std::max(kMedianToSigma * static_cast<double>(middle), least), 2);
  return noise;
}

/// Residuals of the evaluated model and their weights, for a `first` guess with room for what it is off by. The noise
/// of the pixels.
NoiseLevel weigh(const EdgeTable& table, const EdgeModel& model, bool first, EdgeFitting& work) {
  const Eigen::Index n = table.size();
  if (work.residuals.size() < n + 3) {
    for (Eigen::ArrayXf* column : {&work.residuals, &work.weights, &work.weighted}) column->resize(2 * n);
  }
  work.residuals.head(n) = table.grey() - table.modelGrey();
  const NoiseLevel noise = work.noise ? *work.noise : noiseOfResiduals(table, model, work);
  const auto base = static_cast<float>(noise.base), slope = static_cast<float>(noise.slope);
  const auto least = static_cast<float>(noise.least);
  const auto r = work.residuals.head(n);
  auto w = work.weights.head(n);
  w = (base + slope * table.modelGrey()).max(least);
  if (work.noise && first) w += kStartOff * kStartOff * table.slopes(2).array().square().rowwise().sum();
  w = w.inverse();
  w *= (1.0F - r.square() * w / (kTukey * kTukey)).max(0.0F).square();
  work.weights.segment(n, 3).setZero();
  work.residuals.segment(n, 3).setZero();
  return noise;
}

struct NormalEquations {
  Normal normal;
  Vector right;
};

using Four = Eigen::Array4f;

/// Four sums, each of every fourth pixel's, to one: the same on every machine.
double added(const Four& sums) {
  return (static_cast<double>(sums[0]) + static_cast<double>(sums[1])) +
         (static_cast<double>(sums[2]) + static_cast<double>(sums[3]));
}

double sumOf(Eigen::Index n, const float* values) {
  Four sums = Four::Zero();
  Eigen::Index i = 0;
  for (; i + 4 <= n; i += 4) sums += Four::Map(values + i);
  double sum = added(sums);
  for (; i < n; ++i) sum += static_cast<double>(values[i]);
  return sum;
}

/// Sums of a column's products with up to four others.
void addProducts(Eigen::Index n, const float* one, const std::array<const float*, 4>& others,
                 std::array<double, 4>& sums) {
  Four first = Four::Zero(), second = Four::Zero(), third = Four::Zero(), fourth = Four::Zero();
  for (Eigen::Index i = 0; i < n; i += 4) {
    const Four here = Four::Map(one + i);
    first += here * Four::Map(others[0] + i);
    second += here * Four::Map(others[1] + i);
    third += here * Four::Map(others[2] + i);
    fourth += here * Four::Map(others[3] + i);
  }
  sums = {added(first), added(second), added(third), added(fourth)};
}

/// The lower half of the normal matrix is filled: it is symmetric. Beyond the pixels weights and slopes are 0, so that
/// all of them are in fours.
NormalEquations normalEquations(const EdgeTable& table, Eigen::Index unknowns, EdgeFitting& work) {
  const Eigen::Index fours = (table.size() + 3) / 4 * 4;
  NormalEquations equations{Normal::Zero(unknowns, unknowns), Vector::Zero(unknowns)};
  const auto columnOf = [&](Eigen::Index k) { return table.slopeOf(std::min(k, unknowns - 1)); };
  std::array<double, 4> sums{};
  for (Eigen::Index k = 0; k < unknowns; ++k) {
    work.weighted.head(fours) = work.weights.head(fours) * Eigen::ArrayXf::Map(columnOf(k), fours);
    for (Eigen::Index row = k; row <= unknowns; row += 4) {
      std::array<const float*, 4> others{};
      for (Eigen::Index i = 0; i < 4; ++i)
        others[static_cast<std::size_t>(i)] = row + i == unknowns ? work.residuals.data() : columnOf(row + i);
      addProducts(fours, work.weighted.data(), others, sums);
      for (Eigen::Index i = 0; i < 4 && row + i <= unknowns; ++i) {
        const double sum = sums[static_cast<std::size_t>(i)];
        (row + i == unknowns ? equations.right(k) : equations.normal(row + i, k)) = sum;
      }
    }
  }
  return equations;
}

/// Adds a step to the model; the length of the centre's, or nothing when the model is none any more.
std::optional<double> stepped(EdgeModel& model, const Vector& step) {
  const double length = std::hypot(step(0), step(1));
  const double share = length > kLongestStep ? kLongestStep / length : 1.0;
  model.outline.centre += cv::Point2d(share * step(0), share * step(1));
  model.outline.xx += share * step(2);
  model.outline.xy += share * step(3);
  model.outline.yy += share * step(4);
  model.paper += share * step(5);
  model.ink += share * step(6);
  const double blur = std::clamp(model.blur + share * step(7), 0.5 * model.blur, 2.0 * model.blur);
  model.blur = std::clamp(blur, kSharpest, kSoftest);
  for (std::size_t k = 1; k < model.edges; ++k) model.ratio[k] += share * step(static_cast<Eigen::Index>(7 + k));
  if (!model.outline.isEllipse() || !std::isfinite(length)) return std::nullopt;
  return length;
}

/// What tells the zones of a fit's pixels apart.
struct ZoneLimits {
  float flat, on_edge, allowed, middle;
  float base, slope, least;  ///< Of the noise.
};

/// The squared residuals by zone, 0 for pixels of another one, and how many there are. Columns that are apart from each
/// other, so that compilers work on several pixels at once.
void splitByZone(Eigen::Index n, const ZoneLimits& limits, const float* __restrict residuals,
                 const float* __restrict greys, const float* __restrict distances, float* __restrict on_edge,
                 float* __restrict above, float* __restrict below, EdgeFit& fit) {
  const ZoneLimits of = limits;
  int edges = 0, outliers = 0, flats_above = 0, flats_below = 0;
  for (Eigen::Index i = 0; i < n; ++i) {
    const float squared = residuals[i] * residuals[i], distance = std::abs(distances[i]);
    const float line = of.base + of.slope * greys[i];
    const float variance = line > of.least ? line : of.least;
    const int far = squared > kOutlier * kOutlier * (variance + of.allowed), is_edge = distance < of.on_edge;
    const int is_flat = (1 - far) & (distance > of.flat), is_above = greys[i] > of.middle;
    edges += is_edge;
    outliers += is_edge & far;
    flats_above += is_flat & is_above;
    flats_below += is_flat & (1 - is_above);
    on_edge[i] = (is_edge & (1 - far)) != 0 ? squared / variance : 0.0F;
    above[i] = (is_flat & is_above) != 0 ? squared : 0.0F;
    below[i] = (is_flat & (1 - is_above)) != 0 ? squared : 0.0F;
  }
  fit.on_edge = edges;
  fit.outliers = outliers;
  fit.edge.count = edges - outliers;
  fit.paper.count = flats_above;
  fit.ink.count = flats_below;
}

struct Step {
  Vector way;           ///< Of the unknowns.
  double length = 0.0;  ///< By which the centre moved, pixels.
  NoiseLevel noise;
  Eigen::LLT<Normal, Eigen::Lower> solver;
};

/// After a fit: the residuals by zone. The table is that before the last step, two hundredths of a pixel of the centre
/// away at most, but by more of the greys; what that step takes off the residuals is linear.
void measureResiduals(const Step& last, EdgeFitting& work, EdgeFit& fit) {
  work.residuals.head(work.table.size()) -= (work.table.slopes(last.way.size()) * last.way.cast<float>()).array();
  const NoiseLevel& noise = last.noise;
  const EdgeModel& model = fit.model;
  const auto number = [](double value) { return static_cast<float>(value); };
  const ZoneLimits limits{number(kFlat * model.blur),
                          number(kOnEdge * model.blur),
                          number(std::pow(kModelError * (model.paper - model.ink), 2)),
                          number(0.5 * (model.paper + model.ink)),
                          number(noise.base),
                          number(noise.slope),
                          number(noise.least)};
  const Eigen::Index n = work.table.size();
  if (work.zones.rows() < work.residuals.size()) work.zones.resize(work.residuals.size(), Eigen::NoChange);
  splitByZone(n, limits, work.residuals.data(), work.table.modelGrey().data(), work.table.distance().data(),
              work.zones.col(0).data(), work.zones.col(1).data(), work.zones.col(2).data(), fit);
  fit.edge.squares = sumOf(n, work.zones.col(0).data());
  fit.paper.squares = sumOf(n, work.zones.col(1).data());
  fit.ink.squares = sumOf(n, work.zones.col(2).data());
  if (model.paper < model.ink) std::swap(fit.paper, fit.ink);
}

/// One step of the method on the pixels of a table; none where they do not determine the model.
std::optional<Step> stepOn(EdgeTable& table, bool first, EdgeFitting& work, EdgeModel& model) {
  table.evaluate(model, work.beside);
  Step step;
  step.noise = weigh(table, model, first, work);
  const NormalEquations equations = normalEquations(table, static_cast<Eigen::Index>(model.unknowns()), work);
  step.solver.compute(equations.normal);
  if (step.solver.info() != Eigen::Success) return std::nullopt;
  step.way = step.solver.solve(equations.right);
  const std::optional<double> length = stepped(model, step.way);
  if (!length) return std::nullopt;
  step.length = *length;
  return step;
}

cv::Matx22d covarianceOf(const Step& step, Eigen::Index unknowns) {
  using Unit = Eigen::Matrix<double, Eigen::Dynamic, 2, 0, kMost, 2>;
  const Unit inverse = step.solver.solve(Unit::Identity(unknowns, 2));
  return {inverse(0, 0), inverse(0, 1), inverse(1, 0), inverse(1, 1)};
}

/// A part of many pixels tells the most of the way to the first step's end.
bool stepOnSome(EdgeFitting& work, EdgeModel& model) {
  if (!work.noise || work.table.size() < kMany) return false;
  work.some.takeEvery(std::max(work.table.size() / kSome, Eigen::Index{2}), work.table);
  return stepOn(work.some, true, work, model).has_value();
}

/// From a model on; the first step's weights are a guess where the model is one.
std::optional<EdgeFit> fitFrom(const EdgeModel& start, bool is_guess, EdgeFitting& work) {
  EdgeFit fit;
  fit.model = start;
  for (int round = 0; round < kSteps; ++round) {
    const bool is_first = is_guess && round == 0;
    const std::optional<Step> step = stepOn(work.table, is_first, work, fit.model);
    if (!step) return std::nullopt;
    if ((is_first || step->length > kSettled) && round + 1 < kSteps) continue;
    fit.covariance = covarianceOf(*step, static_cast<Eigen::Index>(start.unknowns()));
    measureResiduals(*step, work, fit);
    break;
  }
  return fit;
}

}  // namespace

std::optional<EdgeFit> fitEdge(const EdgeModel& start, EdgeFitting& work) {
  if (work.table.size() < 2 * static_cast<Eigen::Index>(start.unknowns())) return std::nullopt;
  EdgeModel model = start;
  if (start.paper == start.ink && !guessGreys(model, work.table)) return std::nullopt;
  EdgeModel nearer = model;
  if (stepOnSome(work, nearer)) {
    if (auto fit = fitFrom(nearer, false, work)) return fit;
  }
  // Where something lies over the mark, some of its pixels may lead astray.
  return fitFrom(model, true, work);
}

}  // namespace refine
