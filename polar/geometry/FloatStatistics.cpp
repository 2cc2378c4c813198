#include "polar/geometry/FloatStatistics.h"

FloatStatistics floatStatistics(const std::vector<float>& values) {
  const auto count = static_cast<float>(values.size());
  float sum = 0.0F;
  for (const float value : values) sum += value;
  const float mean = sum / count;
  float square_sum = 0.0F;
  for (const float value : values) square_sum += (value - mean) * (value - mean);
  return {mean, square_sum / count};
}
