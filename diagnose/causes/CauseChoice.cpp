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

/// How a cause would be told if some others were known not to be there: its size by its standard error, both squared.
double clarityOf(const RowFit& all, std::size_t cause, const CauseSet& named, const CauseSet& absent) {
  const auto place = static_cast<Eigen::Index>(cause);
  const double size = sizesOf(all, named & ~absent)[place];
  const double size_of_all = sizesOf(all, ~absent)[place];
  return size * size / (varianceOf(all, cause, absent) + (size - size_of_all) * (size - size_of_all));
}

/// The others that must not be there if the cause is to be told.
CauseSet rivalsOf(const RowFit& all, std::size_t cause, const CauseSet& needed, const CauseSet& named) {
  CauseSet rivals;
  const CauseSet candidates = kAllCauses & ~needed;
  while (clarityOf(all, cause, named, rivals) < kTold && (candidates & ~rivals).any()) {
    std::size_t best = kCauses;
    double best_clarity = -1.0;
    for (std::size_t k = 0; k < kCauses; ++k) {
      if (!candidates.test(k) || rivals.test(k)) continue;
      CauseSet more = rivals;
      const double clarity = clarityOf(all, cause, named, more.set(k));
      if (clarity > best_clarity) {
        best_clarity = clarity;
        best = k;
      }
    }
    rivals.set(best);
  }
  for (std::size_t k = 0; k < kCauses; ++k) {
    CauseSet fewer = rivals;
    if (rivals.test(k) && clarityOf(all, cause, named, fewer.reset(k)) >= kTold) rivals = fewer;
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

double varianceOf(const RowFit& all, std::size_t cause, const CauseSet& absent) {
  CauseMatrix information = all.information;
  for (const Eigen::Index place : placesIn(absent)) {
    information.row(place).setZero();
    information.col(place).setZero();
    information(place, place) = 1.0;
  }
  // As a square: dots in one place leave so little that a difference of rounded numbers may fall below 0.
  const CauseVector unit = CauseVector::Unit(static_cast<Eigen::Index>(cause));
  return information.llt().matrixL().solve(unit).squaredNorm();
}

CauseVector sizesOf(const RowFit& all, const CauseSet& causes) {
  const std::vector<Eigen::Index> left_out = placesIn(~causes);
  if (left_out.empty()) return all.sizes;
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
  // A group's members are fitted with the others, which may leave one of these unsure in turn.
  for (CauseSet before; before != choice.named;) {
    before = choice.named;
    for (std::size_t k = 0; k < kCauses; ++k) {
      if (!needed.test(k) || choice.group[k] != 0) continue;
      const CauseSet rivals = rivalsOf(all, k, needed, before);
      if (rivals.any()) join(choice, k, rivals, groups);
    }
  }
  numberInOrder(choice.group);
  return choice;
}
