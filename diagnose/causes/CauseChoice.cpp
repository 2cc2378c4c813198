#include "diagnose/causes/CauseChoice.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <cmath>
#include <map>

namespace {

/// Squared standard errors from which a cause counts as told.
constexpr double kTold = 9.0;

std::vector<Eigen::Index> placesIn(const CauseSet& causes) {
  std::vector<Eigen::Index> places;
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (causes.test(k)) places.push_back(static_cast<Eigen::Index>(k));
  }
  return places;
}

/// Size of a cause by its standard error, both squared, when some others are known not to be there.
double clarityOf(const RowFit& all, std::size_t cause, const CauseSet& absent) {
  CauseSet only = absent;
  only.set(cause);
  // The excess of leaving out both over that of leaving out the absent ones alone.
  return excessOf(all, kAllCauses & ~only) - excessOf(all, kAllCauses & ~absent);
}

/// The others that must not be there if the cause is to be told.
CauseSet rivalsOf(const RowFit& all, std::size_t cause, const CauseSet& needed) {
  CauseSet rivals;
  const CauseSet candidates = kAllCauses & ~needed;
  while (clarityOf(all, cause, rivals) < kTold && (candidates & ~rivals).any()) {
    std::size_t best = kCauses;
    double best_clarity = -1.0;
    for (std::size_t k = 0; k < kCauses; ++k) {
      if (!candidates.test(k) || rivals.test(k)) continue;
      CauseSet more = rivals;
      const double clarity = clarityOf(all, cause, more.set(k));
      if (clarity > best_clarity) {
        best_clarity = clarity;
        best = k;
      }
    }
    rivals.set(best);
  }
  for (std::size_t k = 0; k < kCauses; ++k) {
    CauseSet fewer = rivals;
    if (rivals.test(k) && clarityOf(all, cause, fewer.reset(k)) >= kTold) rivals = fewer;
  }
  return rivals;
}

CauseSet neededOf(const RowFit& all) {
  CauseSet best;
  double best_cost = INFINITY;
  for (unsigned long bits = 0; bits < (1UL << kCauses); ++bits) {
    const CauseSet causes(bits);
    const double cost = excessOf(all, causes) + kPriceOfACause * static_cast<double>(causes.count());
    if (cost < best_cost) {
      best_cost = cost;
      best = causes;
    }
  }
  return best;
}

void join(CauseChoice& choice, std::size_t cause, const CauseSet& rivals, int& groups) {
  CauseSet members = rivals;
  members.set(cause);
  const int fresh = ++groups;
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (!members.test(k)) continue;
    const int old = choice.group[k];
    choice.group[k] = fresh;
    if (old == 0) continue;
    for (int& group : choice.group) group = group == old ? fresh : group;
  }
  choice.named |= members;
}

void numberInOrder(std::array<int, kCauses>& groups) {
  std::map<int, int> numbers{{0, 0}};
  for (int& group : groups) group = numbers.emplace(group, static_cast<int>(numbers.size())).first->second;
}

}  // namespace

double excessOf(const RowFit& all, const CauseSet& causes) {
  const std::vector<Eigen::Index> left_out = placesIn(~causes);
  if (left_out.empty()) return 0.0;
  const CauseMatrix covariance = all.information.inverse();
  const Eigen::MatrixXd part = covariance(left_out, left_out);
  const Eigen::VectorXd sizes = all.sizes(left_out);
  return sizes.dot(part.llt().solve(sizes));
}

CauseVector sizesOf(const RowFit& all, const CauseSet& causes) {
  const std::vector<Eigen::Index> left_out = placesIn(~causes);
  const CauseMatrix covariance = all.information.inverse();
  const Eigen::MatrixXd part = covariance(left_out, left_out);
  const Eigen::VectorXd sizes = all.sizes(left_out);
  return all.sizes - covariance(Eigen::all, left_out) * part.llt().solve(sizes);
}

CauseChoice chooseCauses(const RowFit& all) {
  CauseChoice choice;
  const CauseSet needed = neededOf(all);
  choice.named = needed;
  int groups = 0;
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (!needed.test(k)) continue;
    const CauseSet rivals = rivalsOf(all, k, needed);
    if (rivals.any()) join(choice, k, rivals, groups);
  }
  numberInOrder(choice.group);
  return choice;
}
