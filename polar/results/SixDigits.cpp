#include "polar/results/SixDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr int kDigits = 6;
/// All exact.
constexpr std::array<double, 10> kPowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
/// From 1e-4 to 1e6. Those that are not exact lie above what they stand for and have no other number between, so that a
/// comparison with them is one with the true power.
constexpr std::array<double, 11> kFirstOfDecade = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr int kLowestExponent = -4;

char* writeExactly(char* to, double value) {
  return std::to_chars(to, to + kLongestNumber, value, std::chars_format::general, kDigits).ptr;
}

/// Of a double's bits those behind the exponent, and what is added to that.
constexpr unsigned kFractionBits = 52;
constexpr std::uint64_t kExponentBias = 1023;
/// 2^-14 is the last power of two below 1e-4, 2^19 the last one below 1e6.
constexpr std::uint64_t kLowestPower = kExponentBias - 14;
constexpr std::size_t kPowers = 14 + 19 + 1;

/// The decimal exponent of each of these powers; -5 below 1e-4.
constexpr auto kExponentOfPower = [] {
  std::array<int, kPowers> exponents{};
  double power = 0x1p-14;
  for (int& exponent : exponents) {
    exponent = kLowestExponent - 1;
    for (const double first : kFirstOfDecade) exponent += static_cast<int>(power >= first);
    power *= 2;
  }
  return exponents;
}();

/// That of the power of two below, or one more.
int decimalExponent(double magnitude) {
  const std::uint64_t power = std::bit_cast<std::uint64_t>(magnitude) >> kFractionBits;
  const int exponent = kExponentOfPower[power - kLowestPower];
  return exponent +
         static_cast<int>(magnitude >= kFirstOfDecade[static_cast<std::size_t>(exponent + 1 - kLowestExponent)]);
}

/// Characters in one number, the first one in its lowest byte, as they lie in memory.
using Characters = std::uint64_t;
static_assert(std::endian::native == std::endian::little);
constexpr int kBits = 8;  ///< Of a character.

/// Of each number below 100.
constexpr auto kTwoDigits = [] {
  std::array<Characters, 100> pairs{};
  for (std::size_t k = 0; k < pairs.size(); ++k) pairs[k] = ('0' + k / 10) | ('0' + k % 10) << kBits;
  return pairs;
}();
constexpr Characters kSixZeros = 0x303030303030;

Characters sixDigits(std::uint32_t number) {
  return kTwoDigits[number / 10000] | kTwoDigits[number / 100 % 100] << 2 * kBits |
         kTwoDigits[number % 100] << 4 * kBits;
}

/// How many digits there are without the zeros at the end.
int significantOf(Characters digits) { return (63 - std::countl_zero(digits ^ kSixZeros)) / kBits + 1; }

/// All eight, of which as many count as the caller goes on by: faster than as many as there are.
void put(char* to, Characters characters) { std::memcpy(to, &characters, sizeof characters); }

/// The six digits, the point behind the first one shifted by the exponent, without zeros at the end. Without a branch
/// on the exponent: whether a number is above 1 cannot be foretold.
char* writeFixed(char* to, std::uint32_t number, int exponent) {
  constexpr Characters kZeroAndPoint = 0x3030303030302E30;  // "0.000000"
  const Characters digits = sixDigits(number);
  const int whole = std::max(exponent + 1, 0), zeros = std::max(-exponent - 1, 0);
  const int count = std::max(significantOf(digits), whole);
  const bool from_one_on = whole > 0;
  put(to, from_one_on ? digits : kZeroAndPoint);
  const int point = from_one_on ? whole : 1;
  to[point] = '.';
  put(to + point + 1 + zeros, digits >> whole * kBits);
  const int behind = count - whole + zeros;
  return to + point + behind + static_cast<int>(behind > 0);
}

}  // namespace

char* writeSixDigits(char* to, double value) {
  const double magnitude = std::abs(value);
  if (!(magnitude >= kFirstOfDecade.front() && magnitude < 999999.0)) return writeExactly(to, value);
  const int exponent = decimalExponent(magnitude);
  // One rounding, of less than 1e-10 here: with more than that to the next half the digits are those of the number.
  const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(kDigits - 1 - exponent)];
  const auto whole = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - whole;
  if (std::abs(rest - 0.5) < 1e-9) return writeExactly(to, value);
  const std::uint32_t digits = whole + static_cast<std::uint32_t>(rest > 0.5);
  if (digits > 999999) return writeExactly(to, value);
  *to = '-';
  return writeFixed(to + static_cast<int>(value < 0), digits, exponent);
}
