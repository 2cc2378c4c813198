#include "store/fleet/NaturalOrder.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace polarline::fleet {
namespace {

std::optional<double> numberIn(const std::string& text) {
  double value = 0.0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || rest != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace

bool isBefore(const std::string& a, const std::string& b) {
  const auto first = numberIn(a), second = numberIn(b);
  if (first && second && *first != *second) return *first < *second;
  if (first.has_value() != second.has_value()) return first.has_value();
  return a < b;
}

}  // namespace polarline::fleet
