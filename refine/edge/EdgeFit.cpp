#include "refine/edge/EdgeFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/Median.h"
#include "platform/WideLoops.h"
#include "refine/edge/EdgePixels.h"
#include "refine/edge/FourSums.h"
#include "refine/edge/NormalEquations.h"

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

using Unknowns = std::array<double, EdgeModel::kMostUnknowns>;

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

/// Noise in single precision, as pixels are.
struct NoiseNumbers {
  float base, slope, least;

  explicit NoiseNumbers(const NoiseLevel& noise)
      : base(static_cast<float>(noise.base)),
        slope(static_cast<float>(noise.slope)),
        least(static_cast<float>(noise.least)) {}
  float varianceAt(float grey) const {
    const float line = base + slope * grey;
    return line > least ? line : least;
  }
};

// The loops over pixels stand in functions of their own: that their columns are apart from each other is told by the
// parameters, and only then do compilers work on several pixels at once.

/// Weights of pixels by their noise, their residuals and what an outline that is off by `off` squared pixels adds.
PLP_WIDE_LOOPS void weighPixels(Eigen::Index n, const NoiseNumbers& noise, float off, const float* __restrict residuals,
                                const float* __restrict greys, const float* __restrict by_x,
                                const float* __restrict by_y, float* __restrict weights) {
  const NoiseNumbers of = noise;
  for (Eigen::Index i = 0; i < n; ++i) {
    const float weight = 1.0F / (of.varianceAt(greys[i]) + off * (by_x[i] * by_x[i] + by_y[i] * by_y[i]));
    const float room = 1.0F - residuals[i] * residuals[i] * weight / (kTukey * kTukey);
    const float near = room > 0.0F ? room : 0.0F;
    weights[i] = weight * (near * near);
  }
}

/// Residuals of the evaluated model and their weights, for a `first` guess with room for what it is off by. The noise
/// of the pixels.
NoiseLevel weigh(const EdgeTable& table, const EdgeModel& model, bool first, EdgeFitting& work) {
  const Eigen::Index n = table.size();
  if (work.residuals.size() < n + 3) {
    for (Eigen::ArrayXf* column : {&work.residuals, &work.weights}) column->resize(2 * n);
  }
  work.residuals.head(n) = table.grey() - table.modelGrey();
  const NoiseLevel noise = work.noise ? *work.noise : noiseOfResiduals(table, model, work);
  const float off = work.noise && first ? kStartOff * kStartOff : 0.0F;
  weighPixels(n, NoiseNumbers(noise), off, work.residuals.data(), table.modelGrey().data(), table.slopeOf(0),
              table.slopeOf(1), work.weights.data());
  work.weights.segment(n, 3).setZero();
  work.residuals.segment(n, 3).setZero();
  return noise;
}

/// Adds a step to the model; the length of the centre's, or nothing when the model is none any more.
std::optional<double> stepped(EdgeModel& model, const Unknowns& step) {
  const double length = std::hypot(step[0], step[1]);
  const double share = length > kLongestStep ? kLongestStep / length : 1.0;
  model.outline.centre += cv::Point2d(share * step[0], share * step[1]);
  model.outline.xx += share * step[2];
  model.outline.xy += share * step[3];
  model.outline.yy += share * step[4];
  model.paper += share * step[5];
  model.ink += share * step[6];
  const double blur = std::clamp(model.blur + share * step[7], 0.5 * model.blur, 2.0 * model.blur);
  model.blur = std::clamp(blur, kSharpest, kSoftest);
  for (std::size_t k = 1; k < model.edges; ++k) model.ratio[k] += share * step[7 + k];
  if (!model.outline.isEllipse() || !std::isfinite(length)) return std::nullopt;
  return length;
}

/// What tells the zones of a fit's pixels apart.
struct ZoneLimits {
  float flat, on_edge, allowed, middle;
  NoiseNumbers noise;
};

/// The squared residuals by zone, 0 for pixels of another one, and how many there are.
PLP_WIDE_LOOPS void splitByZone(Eigen::Index n, const ZoneLimits& limits, const float* __restrict residuals,
                                const float* __restrict greys, const float* __restrict distances,
                                float* __restrict on_edge, float* __restrict above, float* __restrict below,
                                EdgeFit& fit) {
  const ZoneLimits of = limits;
  int edges = 0, outliers = 0, flats_above = 0, flats_below = 0;
  for (Eigen::Index i = 0; i < n; ++i) {
    const float squared = residuals[i] * residuals[i], distance = std::abs(distances[i]);
    const float variance = of.noise.varianceAt(greys[i]);
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
  NormalEquations::Solution solution;
  double length = 0.0;  ///< By which the centre moved, pixels.
  NoiseLevel noise;
};

/// After a fit: the residuals by zone. The table is that before the last step, two hundredths of a pixel of the centre
/// away at most, but by more of the greys; what that step takes off the residuals is linear.
void measureResiduals(const Step& last, EdgeFitting& work, EdgeFit& fit) {
  const auto unknowns = static_cast<Eigen::Index>(fit.model.unknowns());
  const Eigen::VectorXf way = Eigen::VectorXd::Map(last.solution.step.data(), unknowns).cast<float>();
  work.residuals.head(work.table.size()) -= (work.table.slopes(unknowns) * way).array();
  const EdgeModel& model = fit.model;
  const auto number = [](double value) { return static_cast<float>(value); };
  const ZoneLimits limits{number(kFlat * model.blur), number(kOnEdge * model.blur),
                          number(std::pow(kModelError * (model.paper - model.ink), 2)),
                          number(0.5 * (model.paper + model.ink)), NoiseNumbers(last.noise)};
  const Eigen::Index n = work.table.size();
  if (work.zones.rows() < work.residuals.size()) work.zones.resize(work.residuals.size(), Eigen::NoChange);
  splitByZone(n, limits, work.residuals.data(), work.table.modelGrey().data(), work.table.distance().data(),
              work.zones.col(0).data(), work.zones.col(1).data(), work.zones.col(2).data(), fit);
  fit.edge.squares = sumOf(n, work.zones.col(0).data());
  fit.paper.squares = sumOf(n, work.zones.col(1).data());
  fit.ink.squares = sumOf(n, work.zones.col(2).data());
  if (model.paper < model.ink) std::swap(fit.paper, fit.ink);
}

NormalEquations equationsOf(const EdgeTable& table, std::size_t unknowns, const EdgeFitting& work) {
  return {(table.size() + 3) / 4 * 4, unknowns,           table.slopeOf(0), table.stride(),
          work.residuals.data(),      work.weights.data()};
}

/// One step of the method on the pixels of a table; none where they do not determine the model.
std::optional<Step> stepOn(EdgeTable& table, bool first, EdgeFitting& work, EdgeModel& model) {
  table.evaluate(model, work.beside);
  Step step;
  step.noise = weigh(table, model, first, work);
  const auto solution = equationsOf(table, model.unknowns(), work).solve();
  if (!solution) return std::nullopt;
  step.solution = *solution;
  const std::optional<double> length = stepped(model, solution->step);
  if (!length) return std::nullopt;
  step.length = *length;
  return step;
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
    fit.covariance = step->solution.covariance;
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
