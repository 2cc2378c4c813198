#pragma once

#include <vector>

/// Mean and population variance of a list, summed in single precision and in list order. Without values both are NaN.
struct FloatStatistics {
  float mean = 0.0F;
  float variance = 0.0F;
};
FloatStatistics floatStatistics(const std::vector<float>& values);
