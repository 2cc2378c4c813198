#pragma once

#include <string>
#include <utility>
#include <vector>

#include "polarline/check.h"

/// Checks that a test sets down instead of measuring them.
namespace hand_made {

using Values = std::vector<double>;

inline polarline::Figure figure(const char* name, Values values, bool is_list = false) {
  polarline::Figure figure;
  figure.name = name;
  figure.unit = "pixels";
  figure.is_list = is_list;
  figure.is_own = !values.empty();
  figure.values = std::move(values);
  return figure;
}

/// A finished pair with a value of `dy_means` (none for an empty list) and the list `tri_dis`.
inline polarline::PairCheck pair(std::size_t index, Values dy_means, Values tri_dis) {
  polarline::PairCheck pair;
  pair.index = index;
  pair.left = "l.png";
  pair.right = "r.png";
  pair.finished = true;
  pair.figures = {figure("dy_means", std::move(dy_means)), figure("tri_dis", std::move(tri_dis), true)};
  return pair;
}

/// The pair with the same figures from refined centres.
inline polarline::PairCheck refined(polarline::PairCheck pair, Values dy_means, Values tri_dis) {
  pair.refined.emplace();
  pair.refined->figures = {figure("dy_means", std::move(dy_means)), figure("tri_dis", std::move(tri_dis), true)};
  return pair;
}

inline polarline::PairCheck givenUp(polarline::PairCheck pair) {
  pair.finished = false;
  pair.reason = {-6, "4 dots were found in the left picture; 6 are needed", "left", "ellipses"};
  return pair;
}

}  // namespace hand_made
