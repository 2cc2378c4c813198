#include "refine/edge/NormalEquations.h"

#include <opencv2/core/hal/hal.hpp>
#include <utility>

#include "refine/edge/FourSums.h"

namespace refine {
namespace {

struct Columns {
  Eigen::Index pixels;
  const float* slopes;
  Eigen::Index stride;
  const float* residuals;
  const float* weights;
};

/// Sums of the weighted first column's products with `kCount` columns, itself the first, and with the residuals. How
/// many is known beforehand, so that all sums stay in registers.
template <std::size_t kCount>
void sumProducts(const Columns& of, double* sums) {
  const Columns columns = of;
  std::array<Four, kCount + 1> totals;
  totals.fill(Four::Zero());
  for (Eigen::Index i = 0; i < columns.pixels; i += 4) {
    const Four here = Four::Map(columns.weights + i) * Four::Map(columns.slopes + i);
    for (std::size_t k = 0; k < kCount; ++k)
      totals[k] += here * Four::Map(columns.slopes + static_cast<Eigen::Index>(k) * columns.stride + i);
    totals[kCount] += here * Four::Map(columns.residuals + i);
  }
  for (std::size_t k = 0; k <= kCount; ++k) sums[k] = added(totals[k]);
}

using SumProducts = void (*)(const Columns&, double*);

template <std::size_t... kIndex>
constexpr auto sumsByCount(std::index_sequence<kIndex...> /*counts*/) {
  return std::array<SumProducts, sizeof...(kIndex)>{&sumProducts<kIndex + 1>...};
}

constexpr auto kSumsByCount = sumsByCount(std::make_index_sequence<NormalEquations::kMost>{});

}  // namespace

NormalEquations::NormalEquations(Eigen::Index pixels, std::size_t unknowns, const float* slopes, Eigen::Index stride,
                                 const float* residuals, const float* weights)
    : unknowns_(unknowns) {
  std::array<double, kMost + 1> sums{};
  for (std::size_t k = 0; k < unknowns; ++k) {
    const std::size_t count = unknowns - k;
    const Columns columns{pixels, slopes + static_cast<Eigen::Index>(k) * stride, stride, residuals, weights};
    kSumsByCount[count - 1](columns, sums.data());
    for (std::size_t i = 0; i < count; ++i) lower_[k + i][k] = sums[i];
    sides_[k][0] = sums[count];
  }
  for (std::size_t k = 0; k + 1 < kSides; ++k) sides_[k][k + 1] = 1.0;
}

std::optional<NormalEquations::Solution> NormalEquations::solve() {
  if (!cv::hal::Cholesky64f(lower_.front().data(), sizeof(lower_.front()), static_cast<int>(unknowns_),
                            sides_.front().data(), sizeof(sides_.front()), kSides))
    return std::nullopt;
  Solution solution;
  for (std::size_t k = 0; k < unknowns_; ++k) solution.step[k] = sides_[k][0];
  solution.covariance = {sides_[0][1], sides_[0][2], sides_[1][1], sides_[1][2]};
  return solution;
}

}  // namespace refine
