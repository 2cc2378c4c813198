#include "refine/edge/EdgeFit.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>

#include "platform/Median.h"
#include "refine/edge/EdgePixels.h"

namespace refine {
namespace {

constexpr int kSteps = 12;
/// Pixels. The method's error falls to some hundredths with each step: what is left is some ten-thousandths.
constexpr double kSettled = 0.01;
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
NoiseLevel noiseOfResiduals(const EdgeModel& model, EdgeFitting& work) {
  work.sorted.clear();
  const auto on_edge = static_cast<float>(kOnEdge * model.blur);
  for (Eigen::Index i = 0; i < work.table.size(); ++i) {
    if (std::abs(work.table.distance()(i)) < on_edge) work.sorted.push_back(std::abs(work.residuals(i)));
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
NoiseLevel weigh(const EdgeModel& model, bool first, EdgeFitting& work) {
  const EdgeTable& table = work.table;
  const Eigen::Index n = table.size();
  if (work.residuals.size() < n) {
    work.residuals.resize(2 * n);
    work.weights.resize(2 * n);
    work.weighted.resize(2 * n, Eigen::NoChange);
  }
  work.residuals.head(n) = table.grey() - table.modelGrey();
  const NoiseLevel noise = work.noise ? *work.noise : noiseOfResiduals(model, work);
  const auto base = static_cast<float>(noise.base), slope = static_cast<float>(noise.slope);
  const auto least = static_cast<float>(noise.least);
  const auto r = work.residuals.head(n);
  auto w = work.weights.head(n);
  w = (base + slope * table.modelGrey()).max(least);
  if (work.noise && first) w += kStartOff * kStartOff * table.slopes(2).array().square().rowwise().sum();
  w = w.inverse();
  w *= (1.0F - r.square() * w / (kTukey * kTukey)).max(0.0F).square();
  return noise;
}

struct NormalEquations {
  Normal normal;
  Vector right;
};

NormalEquations normalEquations(Eigen::Index unknowns, EdgeFitting& work) {
  const Eigen::Index n = work.table.size();
  auto weighted = work.weighted.topLeftCorner(n, unknowns);
  const auto slopes = work.table.slopes(unknowns);
  weighted = slopes.array().colwise() * work.weights.head(n);
  const Eigen::Matrix<float, Eigen::Dynamic, Eigen::Dynamic, 0, kMost, kMost> normal = weighted.transpose() * slopes;
  const Eigen::Matrix<float, Eigen::Dynamic, 1, 0, kMost, 1> right =
      weighted.transpose() * work.residuals.head(n).matrix();
  return {normal.cast<double>(), right.cast<double>()};
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

/// After a fit: the residuals by zone. The table is that of the last evaluation, a step of a hundredth ago at most.
void measureResiduals(const NoiseLevel& noise, const EdgeFitting& work, EdgeFit& fit) {
  const auto flat = static_cast<float>(kFlat * fit.model.blur), on_edge = static_cast<float>(kOnEdge * fit.model.blur);
  const auto allowed = static_cast<float>(std::pow(kModelError * (fit.model.paper - fit.model.ink), 2));
  const auto paper = static_cast<float>(fit.model.paper), ink = static_cast<float>(fit.model.ink);
  for (Eigen::Index i = 0; i < work.table.size(); ++i) {
    const float squared = work.residuals(i) * work.residuals(i);
    const float grey = work.table.modelGrey()(i), distance = std::abs(work.table.distance()(i));
    const auto variance = static_cast<float>(noise.variance(grey));
    const bool far = squared > kOutlier * kOutlier * (variance + allowed);
    if (distance < on_edge) {
      ++fit.on_edge;
      fit.outliers += far;
      if (!far) fit.edge.add(squared / variance);
    } else if (!far && distance > flat) {
      (std::abs(grey - paper) < std::abs(grey - ink) ? fit.paper : fit.ink).add(squared);
    }
  }
}

}  // namespace

std::optional<EdgeFit> fitEdge(const EdgeModel& start, EdgeFitting& work) {
  EdgeFit fit;
  fit.model = start;
  const auto unknowns = static_cast<Eigen::Index>(start.unknowns());
  if (work.table.size() < 2 * unknowns) return std::nullopt;
  if (start.paper == start.ink && !guessGreys(fit.model, work.table)) return std::nullopt;
  for (int step = 0; step < kSteps; ++step) {
    work.table.evaluate(fit.model, work.sampled);
    const NoiseLevel noise = weigh(fit.model, step == 0, work);
    const NormalEquations equations = normalEquations(unknowns, work);
    const Eigen::LDLT<Normal, Eigen::Lower> solver(equations.normal);
    if (solver.info() != Eigen::Success || !solver.isPositive()) return std::nullopt;
    const std::optional<double> length = stepped(fit.model, solver.solve(equations.right));
    if (!length) return std::nullopt;
    // The first step's weights are a guess.
    if ((step == 0 || *length > kSettled) && step + 1 < kSteps) continue;
    using Unit = Eigen::Matrix<double, Eigen::Dynamic, 2, 0, kMost, 2>;
    const Unit inverse = solver.solve(Unit::Identity(unknowns, 2));
    fit.covariance = {inverse(0, 0), inverse(0, 1), inverse(1, 0), inverse(1, 1)};
    measureResiduals(noise, work, fit);
    break;
  }
  return fit;
}

}  // namespace refine
