#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

/// Numbers that are the same on every machine: the standard says what `mt19937_64` gives, and the distributions, of
/// which it does not, are not used.
class SeededRandom {
 public:
  explicit SeededRandom(std::uint64_t seed) : bits_(seed) {}

  std::uint64_t bits() { return bits_(); }
  /// From 0 to below 1.
  double uniform() { return static_cast<double>(bits_() >> 11U) * 0x1.0p-53; }
  /// From 0 to `count` - 1; `count` is above 0.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>(uniform() * static_cast<double>(count)); }
  double sign() { return (bits_() >> 63U) == 0 ? 1.0 : -1.0; }

 private:
  std::mt19937_64 bits_;
};
