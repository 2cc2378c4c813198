#include "diagnose/warnings/RowNoise.h"

#include <cmath>
#include <vector>

#include "platform/Median.h"

namespace diagnose {

std::optional<double> rowNoise(const std::map<std::int32_t, double>& rows, int columns) {
  constexpr std::size_t kLeast = 20;
  std::vector<double> apart;
  for (const auto& [id, value] : rows) {
    if (id % columns == 0 || id % columns == columns - 1) continue;
    double sum = 0.0;
    int neighbours = 0;
    for (const std::int32_t step : {-1, 1, -columns, columns}) {
      const auto found = rows.find(id + step);
      if (found == rows.end()) continue;
      sum += found->second;
      ++neighbours;
    }
    if (neighbours == 4) apart.push_back(value - sum / neighbours);
  }
  if (apart.size() < kLeast) return std::nullopt;
  // A value against the mean of four others has 1 + 1/4 of its variance.
  return rank::spreadAround(std::move(apart), 0.0) / std::sqrt(1.25);
}

}  // namespace diagnose
