#include "diagnose/causes/FoundCauses.h"

#include <cmath>

namespace {

/// Choices that differ from the one before differ in what hardly matters.
constexpr int kRounds = 2;

double meanAbsolute(const Eigen::VectorXd& rows) {
  double sum = 0.0;
  double count = 0.0;
  for (const double row : rows) {
    if (!std::isfinite(row)) continue;
    sum += std::abs(row);
    count += 1.0;
  }
  return count > 0.0 ? sum / count : NAN;
}

/// Shapley values, which for sums of squares are these products. Outliers are left out.
std::array<double, kCauses> sharesOf(const RowFit& fit, const Eigen::VectorXd& before) {
  std::array<double, kCauses> shares{};
  const Eigen::VectorXd counts = (fit.trust.array() > 0.0).select(Eigen::VectorXd::Ones(fit.rows.size()), 0.0);
  const Eigen::VectorXd start = (counts.array() > 0.0).select(before, 0.0);
  const double squares = start.squaredNorm();
  if (squares <= 0.0) return shares;
  for (std::size_t k = 0; k < kCauses; ++k) {
    const auto place = static_cast<Eigen::Index>(k);
    const Eigen::VectorXd effect = -fit.sizes[place] * fit.slopes.col(place).cwiseProduct(counts);
    shares[k] = effect.dot(start + fit.rows) / squares;
  }
  return shares;
}

/// The others of a group may be what was taken for the cause, so its standard error is that of a fit of all causes; and
/// as far as leaving causes out has moved it.
Misalignment standardErrors(const RowFit& all, const RowFit& named, const Misalignment& expected) {
  Misalignment sds{};
  for (std::size_t k = 0; k < kCauses; ++k) {
    const auto place = static_cast<Eigen::Index>(k);
    const double moved = named.sizes[place] - all.sizes[place];
    sds[k] = expected[k] * std::hypot(std::sqrt(varianceOf(all, k, {})), moved);
  }
  return sds;
}

double spreadOf(const RowFit& fit) {
  double squares = 0.0;
  double count = 0.0;
  for (Eigen::Index k = 0; k < fit.rows.size(); ++k) {
    if (fit.trust[k] <= 0.0) continue;
    squares += fit.rows[k] * fit.rows[k];
    count += 1.0;
  }
  return count > 0.0 ? std::sqrt(squares / count) : NAN;
}

/// Outliers are not a number.
Eigen::VectorXd keptOf(const Eigen::VectorXd& rows, const RowFit& fit) {
  return (fit.trust.array() > 0.0).select(rows, NAN);
}

std::size_t numbersIn(const Eigen::VectorXd& rows) { return static_cast<std::size_t>(rows.array().isFinite().count()); }

std::optional<double> aloneOf(const RowFit& all, const CauseChoice& choice, std::size_t cause) {
  if (choice.group[cause] == 0) return std::nullopt;
  CauseSet causes = choice.named;
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (k != cause && choice.group[k] == choice.group[cause]) causes.reset(k);
  }
  if (excessOf(all, causes) - excessOf(all, choice.named) > kPriceOfACause) return std::nullopt;
  return sizesOf(all, causes)[static_cast<Eigen::Index>(cause)];
}

}  // namespace

FoundCauses findCauses(const RowDifferences& differences, const Misalignment& expected) {
  const RowFitter fitter(differences, expected);
  const RowFit first = fitter.fit();
  const double inflation = alikeErrors(differences.dots(), first).inflation;
  RowFit all = fitter.refit(first, kAllCauses, inflation);
  FoundCauses found;
  found.choice = chooseCauses(all);
  RowFit named = fitter.refit(all, found.choice.named, inflation);
  for (int round = 0; round < kRounds; ++round) {
    all = fitter.allNear(named, inflation);
    found.choice = chooseCauses(all);
    named = fitter.refit(all, found.choice.named, inflation);
  }
  const Eigen::VectorXd before = fitter.rowsAt(CauseVector::Zero());
  found.values = fitter.misalignmentOf(named.sizes);
  found.sds = standardErrors(all, named, expected);
  found.shares = sharesOf(named, before);
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (const auto alone = aloneOf(all, found.choice, k)) found.alone[k] = *alone * expected[k];
  }
  found.rows_before = meanAbsolute(before);
  const Eigen::VectorXd after = fitter.rowsAt(named.sizes);
  found.rows_after = meanAbsolute(after);
  found.kept_before = meanAbsolute(keptOf(before, named));
  found.kept_after = meanAbsolute(keptOf(after, named));
  found.outliers = numbersIn(before) - numbersIn(keptOf(before, named));
  found.spread_after = spreadOf(named);
  found.alike = alikeErrors(differences.dots(), named);
  return found;
}
