#include "diagnose/causes/RowFit.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/Median.h"

namespace {

constexpr int kHuberSteps = 6;
/// The misalignments are small: after two steps the slopes stay.
constexpr int kSlopeSteps = 2;
constexpr int kMostSteps = 25;
/// Of the normal distribution these keep 95 % of the precision of least squares.
constexpr double kHuber = 1.345;
constexpr double kTukey = 4.685;
/// Of the normal distribution, median of the absolute value to standard deviation.
constexpr double kSdOfMedian = 1.4826;
/// In expected sizes: the rows are smooth over it, and the difference keeps ten digits.
constexpr double kStep = 1e-3;
/// In standard errors.
constexpr double kSettled = 1e-3;
/// Pixels: a perfect set, in which roundings would pass for signs of causes.
constexpr double kLeastScale = 1e-5;

double huber(double u) { return u <= kHuber ? 1.0 : kHuber / u; }

double tukey(double u) {
  if (u >= kTukey) return 0.0;
  const double rest = 1.0 - (u / kTukey) * (u / kTukey);
  return rest * rest;
}

double scaleOf(const Eigen::VectorXd& rows, const Eigen::VectorXd& sd) {
  std::vector<double> sizes;
  for (Eigen::Index k = 0; k < rows.size(); ++k) {
    if (std::isfinite(rows[k])) sizes.push_back(std::abs(rows[k]) / sd[k]);
  }
  if (sizes.empty()) return 1.0;
  return std::max(kSdOfMedian * rank::upperMedian(sizes), kLeastScale / sd.mean());
}

/// A dot that the misaligned lens does not see.
void leaveOut(RowFit& fit) {
  for (Eigen::Index k = 0; k < fit.rows.size(); ++k) {
    if (std::isfinite(fit.rows[k]) && fit.slopes.row(k).allFinite()) continue;
    fit.rows[k] = fit.trust[k] = 0.0;
    fit.slopes.row(k).setZero();
  }
}

}  // namespace

Misalignment expectedSizes(const StereoCalibParams& calib) {
  const auto& e = calib.extrinsics;
  const double baseline = std::hypot(e[3], e[4], e[5]);
  constexpr double kTurn = 0.5 * std::numbers::pi / 180.0;
  return {kTurn, kTurn, kTurn, 0.01, 10.0, 0.05 * baseline, 0.05 * baseline, 0.05};
}

RowFitter::RowFitter(const RowDifferences& differences, const Misalignment& expected)
    : differences_(differences), expected_(expected), sd_(static_cast<Eigen::Index>(differences.dots().size())) {
  for (Eigen::Index k = 0; k < sd_.size(); ++k) sd_[k] = differences.dots()[static_cast<std::size_t>(k)].sd;
}

Misalignment RowFitter::misalignmentOf(const CauseVector& sizes) const {
  Misalignment misalignment{};
  for (std::size_t k = 0; k < kCauses; ++k) misalignment[k] = sizes[static_cast<Eigen::Index>(k)] * expected_[k];
  return misalignment;
}

Eigen::VectorXd RowFitter::rowsAt(const CauseVector& sizes) const {
  const std::vector<double> rows = differences_.rows(misalignmentOf(sizes));
  return Eigen::Map<const Eigen::VectorXd>(rows.data(), static_cast<Eigen::Index>(rows.size()));
}

Eigen::MatrixXd RowFitter::slopesAt(const CauseVector& sizes) const {
  Eigen::MatrixXd slopes(sd_.size(), sizes.size());
  for (Eigen::Index k = 0; k < sizes.size(); ++k) {
    const CauseVector step = CauseVector::Unit(k) * kStep;
    slopes.col(k) = (rowsAt(sizes + step) - rowsAt(sizes - step)) / (2.0 * kStep);
  }
  return slopes;
}

void RowFitter::weigh(RowFit& fit, double (*trustOf)(double), double inflation) const {
  fit.rows = rowsAt(fit.sizes);
  fit.scale = scaleOf(fit.rows, sd_);
  fit.trust = (fit.rows.array().abs() / (fit.scale * sd_.array())).unaryExpr(trustOf);
  leaveOut(fit);
  const Eigen::VectorXd weights = fit.trust.array() / (fit.scale * sd_.array()).square() / inflation;
  fit.information = fit.slopes.transpose() * weights.asDiagonal() * fit.slopes + CauseMatrix::Identity();
  fit.pull = fit.slopes.transpose() * weights.cwiseProduct(fit.rows) + fit.sizes;
}

CauseVector RowFitter::stepOf(const RowFit& fit, const CauseSet& causes) const {
  CauseMatrix information = fit.information;
  CauseVector pull = fit.pull;
  for (Eigen::Index k = 0; k < pull.size(); ++k) {
    if (causes.test(static_cast<std::size_t>(k))) continue;
    information.row(k).setZero();
    information.col(k).setZero();
    information(k, k) = 1.0;
    pull[k] = 0.0;
  }
  return -information.ldlt().solve(pull);
}

RowFit RowFitter::fit() const {
  RowFit fit;
  fit.sizes.setZero();
  for (int step = 0; step < kHuberSteps; ++step) {
    if (step < kSlopeSteps) fit.slopes = slopesAt(fit.sizes);
    weigh(fit, &huber, 1.0);
    fit.sizes += stepOf(fit, kAllCauses);
  }
  fit.slopes = slopesAt(fit.sizes);
  return refit(fit, kAllCauses, 1.0);
}

RowFit RowFitter::refit(const RowFit& all, const CauseSet& causes, double inflation) const {
  RowFit fit = all;
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (!causes.test(k)) fit.sizes[static_cast<Eigen::Index>(k)] = 0.0;
  }
  for (int step = 0;; ++step) {
    weigh(fit, &tukey, inflation);
    const CauseVector move = stepOf(fit, causes);
    if (step == kMostSteps || std::sqrt(move.dot(fit.information * move)) < kSettled) return fit;
    fit.sizes += move;
  }
}

RowFit RowFitter::allNear(const RowFit& named, double inflation) const {
  RowFit all = named;
  all.slopes = slopesAt(named.sizes);
  weigh(all, &tukey, inflation);
  all.sizes += stepOf(all, kAllCauses);
  return all;
}
