#include "refine/edge/EdgeFit.h"

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <algorithm>
#include <cmath>

namespace refine {
namespace {

constexpr int kSteps = 15;
constexpr double kSettled = 3e-5;     ///< Pixels.
constexpr double kLongestStep = 0.5;  ///< Pixels.
constexpr double kSharpest = 0.2;     ///< Pixels; a pixel's own width blurs by 0.29.
constexpr double kTukey = 6.0;        ///< Standard deviations; 99 of 100 parts of the efficiency with Gaussian noise.
constexpr double kOutlier = 5.0;
/// Of the contrast: what the model itself may be off by before a pixel counts as covered.
constexpr double kModelError = 0.02;
constexpr double kMedianToSigma = 1.4826;

constexpr int kMost = static_cast<int>(EdgeModel::kMostUnknowns);
using Normal = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, 0, kMost, kMost>;
using Vector = Eigen::Matrix<double, Eigen::Dynamic, 1, 0, kMost, 1>;

struct Sums {
  Normal normal;
  Vector right;

  explicit Sums(Eigen::Index n) : normal(Normal::Zero(n, n)), right(Vector::Zero(n)) {}

  void add(const EdgeGrey& at, double residual, double weight) {
    const Eigen::Index n = right.size();
    for (Eigen::Index i = 0; i < n; ++i) {
      const double weighted = weight * at.slope[static_cast<std::size_t>(i)];
      for (Eigen::Index j = 0; j <= i; ++j) normal(i, j) += weighted * at.slope[static_cast<std::size_t>(j)];
      right(i) += weighted * residual;
    }
  }
};

double biweight(double squared) {
  const double rest = 1.0 - squared / (kTukey * kTukey);
  return rest > 0.0 ? rest * rest : 0.0;
}

/// Paper and ink by least squares with the outline as it stands.
bool guessGreys(const std::vector<EdgePixel>& pixels, EdgeModel& model) {
  model.paper = 0.0;
  model.ink = 1.0;
  double n = 0.0, c = 0.0, cc = 0.0, g = 0.0, cg = 0.0;
  for (const EdgePixel& pixel : pixels) {
    const double covered = edgeGrey(model, pixel.x, pixel.y).grey;
    n += 1.0;
    c += covered;
    cc += covered * covered;
    g += pixel.grey;
    cg += covered * pixel.grey;
  }
  const double determinant = n * cc - c * c;
  if (!(determinant > 1e-3 * n)) return false;
  model.paper = (cc * g - c * cg) / determinant;
  model.ink = model.paper + (n * cg - c * g) / determinant;
  return model.paper != model.ink;
}

/// Scale of the residuals on the edge, where a model that is off shows.
NoiseLevel noiseOfResiduals(const std::vector<EdgePixel>& pixels, const EdgeModel& model,
                            std::vector<double>& residuals) {
  residuals.clear();
  for (const EdgePixel& pixel : pixels) {
    const EdgeGrey at = edgeGrey(model, pixel.x, pixel.y);
    if (std::abs(at.outside) < kOnEdge * model.blur) residuals.push_back(std::abs(pixel.grey - at.grey));
  }
  NoiseLevel noise;
  if (residuals.empty()) return noise;
  const auto middle = residuals.begin() + static_cast<std::ptrdiff_t>(residuals.size() / 2);
  std::nth_element(residuals.begin(), middle, residuals.end());
  const double least = 1e-3 * std::abs(model.paper - model.ink);
  noise.base = std::pow(std::max(kMedianToSigma * *middle, least), 2);
  return noise;
}

Sums sumsOf(const std::vector<EdgePixel>& pixels, const EdgeModel& model, const NoiseLevel& noise) {
  Sums sums(static_cast<Eigen::Index>(model.unknowns()));
  for (const EdgePixel& pixel : pixels) {
    const EdgeGrey at = edgeGrey(model, pixel.x, pixel.y);
    const double residual = pixel.grey - at.grey;
    const double weight = 1.0 / noise.variance(at.grey);
    sums.add(at, residual, weight * biweight(residual * residual * weight));
  }
  return sums;
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
  model.blur = std::clamp(model.blur + share * step(7), std::max(kSharpest, 0.5 * model.blur), 2.0 * model.blur);
  for (std::size_t k = 1; k < model.edges; ++k) model.ratio[k] += share * step(static_cast<Eigen::Index>(7 + k));
  if (!model.outline.isEllipse() || !std::isfinite(length)) return std::nullopt;
  return length;
}

void measureResiduals(const std::vector<EdgePixel>& pixels, const NoiseLevel& noise, EdgeFit& fit) {
  const double flat = 2.5 * fit.model.blur;
  const double on_edge = kOnEdge * fit.model.blur;
  const double allowed = std::pow(kModelError * (fit.model.paper - fit.model.ink), 2);
  for (const EdgePixel& pixel : pixels) {
    const EdgeGrey at = edgeGrey(fit.model, pixel.x, pixel.y);
    const double squared = std::pow(pixel.grey - at.grey, 2);
    const double variance = noise.variance(at.grey);
    const bool far = squared > kOutlier * kOutlier * (variance + allowed);
    if (std::abs(at.outside) < on_edge) {
      ++fit.on_edge;
      fit.outliers += far;
      if (far) continue;
      fit.edge.squares += squared / variance;
      ++fit.edge.count;
    } else if (!far && std::abs(at.outside) > flat) {
      const bool on_paper = std::abs(at.grey - fit.model.paper) < std::abs(at.grey - fit.model.ink);
      ZoneResidual& zone = on_paper ? fit.paper : fit.ink;
      zone.squares += squared;
      ++zone.count;
    }
  }
}

}  // namespace

std::optional<EdgeFit> fitEdge(const std::vector<EdgePixel>& pixels, const EdgeModel& start,
                               const std::optional<NoiseLevel>& noise, std::vector<double>& residuals) {
  EdgeFit fit;
  fit.model = start;
  if (pixels.size() < 2 * start.unknowns()) return std::nullopt;
  if (start.paper == start.ink && !guessGreys(pixels, fit.model)) return std::nullopt;
  NoiseLevel level;
  for (int step = 0; step < kSteps; ++step) {
    level = noise ? *noise : noiseOfResiduals(pixels, fit.model, residuals);
    const Sums sums = sumsOf(pixels, fit.model, level);
    const Eigen::LDLT<Normal, Eigen::Lower> solver(sums.normal);
    if (solver.info() != Eigen::Success || !solver.isPositive()) return std::nullopt;
    const std::optional<double> length = stepped(fit.model, solver.solve(sums.right));
    if (!length) return std::nullopt;
    if (*length > kSettled && step + 1 < kSteps) continue;
    const Eigen::Index n = sums.right.size();
    const Eigen::Matrix<double, Eigen::Dynamic, 2, 0, kMost, 2> unit =
        Eigen::Matrix<double, Eigen::Dynamic, 2, 0, kMost, 2>::Identity(n, 2);
    const auto inverse = solver.solve(unit).eval();
    fit.covariance = {inverse(0, 0), inverse(0, 1), inverse(1, 0), inverse(1, 1)};
    break;
  }
  measureResiduals(pixels, level, fit);
  return fit;
}

}  // namespace refine
