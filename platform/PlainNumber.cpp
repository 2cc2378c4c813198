#include "platform/PlainNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace plain {
namespace {

constexpr double kLeast = 1e-12;
constexpr double kMost = 1e15;

using Buffer = std::array<char, 64>;

bool isDecimal(double value) {
  const double size = std::abs(value);
  return size == 0.0 || (size >= kLeast && size < kMost);
}

template <typename Number, typename... Form>
std::string written(Number value, Form... form) {
  Buffer buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form...).ptr;
  return {buffer.data(), end};
}

/// The power of ten of the first digit, once it is rounded.
int exponentOf(double value, int digits) {
  const std::string text = written(value, std::chars_format::scientific, digits - 1);
  return std::stoi(text.substr(text.find('e') + 1));
}

std::string withoutZeros(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

template <typename Number>
std::string exactly(Number value) {
  return isDecimal(static_cast<double>(value)) ? written(value, std::chars_format::fixed) : written(value);
}

}  // namespace

std::string rounded(double value, int digits) {
  if (!isDecimal(value)) return written(value, std::chars_format::general, digits);
  if (value == 0.0) return "0";
  const int decimals = std::max(0, digits - 1 - exponentOf(value, digits));
  return withoutZeros(written(value, std::chars_format::fixed, decimals));
}

std::string withError(double value, double error) {
  const std::string end = rounded(error, 2);
  std::string begin = rounded(value, 3);
  if (isDecimal(value) && isDecimal(error) && error != 0.0) {
    const std::size_t point = end.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : end.size() - point - 1;
    begin = written(value, std::chars_format::fixed, static_cast<int>(decimals));
  }
  return begin + " ± " + end;
}

std::string exact(double value) { return exactly(value); }

std::string exact(float value) { return exactly(value); }

}  // namespace plain
