#pragma once

#include <random>

/// Normal variates for tests: Irwin and Hall's sum of twelve uniform numbers, of variance 1.
class NormalDraw {
 public:
  explicit NormalDraw(unsigned seed) : bits_(seed) {}
  double operator()() {
    double sum = -6.0;
    for (int k = 0; k < 12; ++k) sum += static_cast<double>(bits_()) * 0x1.0p-32;
    return sum;
  }

 private:
  std::mt19937 bits_;
};
