#pragma once

#include <cstdint>

namespace scene {

/// Pseudo-random numbers that are the same with every compiler and mathematics library: integers only, no logarithm or
/// cosine.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  /// 64 random bits (the SplitMix64 generator; Steele, Lea and Flood 2014).
  std::uint64_t bits() {
    std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

  /// Nearly normal with mean 0 and deviation 1: twelve uniform numbers added, their mean taken off. Never beyond 6.
  double normal() {
    std::uint64_t sum = 0;
    for (int draw = 0; draw < 3; ++draw) {
      const std::uint64_t b = bits();
      sum += (b & 0xFFFFu) + ((b >> 16) & 0xFFFFu) + ((b >> 32) & 0xFFFFu) + (b >> 48);
    }
    return (static_cast<double>(sum) - 12.0 * 32767.5) / 65536.0;
  }

 private:
  std::uint64_t state_;
};

}  // namespace scene
