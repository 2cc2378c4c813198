#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace refine {

/// At most `most` of the numbers below `count`, spread evenly but in step with no number of columns: multiples of the
/// golden ratio, by size. All of them where there are no more.
inline std::vector<std::size_t> spreadChoice(std::size_t count, std::size_t most) {
  std::vector<std::size_t> chosen;
  chosen.reserve(std::min(count, most));
  for (std::size_t k = 0; k < std::min(count, most); ++k) {
    const double turns = static_cast<double>(k) / std::numbers::phi;
    chosen.push_back(
        count <= most ? k : static_cast<std::size_t>((turns - std::floor(turns)) * static_cast<double>(count)));
  }
  std::sort(chosen.begin(), chosen.end());
  chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
  return chosen;
}

}  // namespace refine
