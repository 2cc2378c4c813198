#pragma once

#include <Eigen/Core>

namespace refine {

/// Four sums at once, each of every fourth pixel's values, as the narrowest vectors are that every processor has: the
/// same on every machine.
using Four = Eigen::Array4f;

/// All four to one.
inline double added(const Four& sums) {
  return (static_cast<double>(sums[0]) + static_cast<double>(sums[1])) +
         (static_cast<double>(sums[2]) + static_cast<double>(sums[3]));
}

inline double sumOf(Eigen::Index n, const float* values) {
  Four sums = Four::Zero();
  Eigen::Index i = 0;
  for (; i + 4 <= n; i += 4) sums += Four::Map(values + i);
  double sum = added(sums);
  for (; i < n; ++i) sum += static_cast<double>(values[i]);
  return sum;
}

}  // namespace refine
