#include "polar/results/SixDigits.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace {

constexpr int kDigits = 6;
/// All exact.
constexpr std::array<double, 10> kPowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
/// From 1e-4 to 1e5. Those that are not exact lie above what they stand for and have no other number between, so that a
/// comparison with them is one with the true power.
constexpr std::array<double, 10> kFirstOfDecade = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5};
constexpr int kLowestExponent = -4;

char* writeExactly(char* to, double value) {
  return std::to_chars(to, to + kLongestNumber, value, std::chars_format::general, kDigits).ptr;
}

int decimalExponent(double magnitude) {
  int exponent = kLowestExponent;
  for (std::size_t k = 1; k < kFirstOfDecade.size() && magnitude >= kFirstOfDecade[k]; ++k) ++exponent;
  return exponent;
}

/// The six digits, the point behind the first one shifted by the exponent, without zeros at the end.
char* writeFixed(char* to, std::uint32_t digits, int exponent) {
  std::array<char, kDigits> text{};
  for (std::size_t k = text.size(); k-- > 0; digits /= 10) text[k] = static_cast<char>('0' + digits % 10);
  int last = kDigits - 1;
  while (last > exponent && last > 0 && text[static_cast<std::size_t>(last)] == '0') --last;
  if (exponent < 0) {
    *to++ = '0';
    *to++ = '.';
    for (int zeros = exponent + 1; zeros < 0; ++zeros) *to++ = '0';
  }
  for (int k = 0; k <= last; ++k) {
    if (k == exponent + 1 && k > 0) *to++ = '.';
    *to++ = text[static_cast<std::size_t>(k)];
  }
  return to;
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
  const std::uint32_t digits = rest > 0.5 ? whole + 1 : whole;
  if (digits > 999999) return writeExactly(to, value);
  if (value < 0) *to++ = '-';
  return writeFixed(to, digits, exponent);
}
