#include "report/fleet/FleetYield.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <string_view>

namespace polarline {
namespace {

/// Standard deviations of the normal distribution that hold 95 %.
constexpr double kZ95 = 1.959963984540054;

/// Days that a period and those before it take, about.
double daysBefore(const std::string& period) {
  if (period == "week") return 12.5 * 7.0;
  if (period == "month") return 12.5 * 30.4375;
  return period == "year" ? 5.5 * 365.25 : 28.5;
}

std::optional<int> wholeOf(std::string_view text) {
  int number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

FleetCounts countsOf(const FleetCells& cells, const std::vector<std::size_t>& rows) {
  FleetCounts counts;
  for (const std::size_t row : rows) {
    counts.passed += cells.passed[row];
    counts.failed += cells.failed[row];
    counts.unjudged += cells.unjudged[row];
    counts.errors += cells.errors[row];
  }
  return counts;
}

std::optional<FleetShare> yieldOf(const FleetCounts& counts) {
  if (counts.judged() == 0) return std::nullopt;
  const auto of = static_cast<double>(counts.judged());
  const double share = static_cast<double>(counts.passed) / of;
  const double square = kZ95 * kZ95 / of;
  const double middle = (share + square / 2.0) / (1.0 + square);
  const double half = kZ95 / (1.0 + square) * std::sqrt(share * (1.0 - share) / of + square / (4.0 * of));
  // What rounding would put beyond the end is the end.
  return FleetShare{share, counts.passed == 0 ? 0.0 : std::max(0.0, middle - half),
                    counts.failed == 0 ? 1.0 : std::min(1.0, middle + half)};
}

FleetLately latelyOf(const Fleet& fleet) {
  FleetLately lately;
  const std::vector<std::size_t>& days = fleet.cells.day;
  if (days.empty()) return lately;
  lately.day = std::ranges::max(days);
  for (std::size_t row = 0; row < days.size(); ++row) {
    const std::size_t ago = lately.day - days[row];
    if (ago == 0) {
      lately.last.push_back(row);
    } else if (static_cast<double>(ago) < daysBefore(fleet.period)) {
      lately.before.push_back(row);
    }
  }
  return lately;
}

std::string dateOf(const Fleet& fleet, std::size_t day) {
  const std::string_view text = fleet.first_day;
  if (text.size() != 10) return {};
  const std::array<std::optional<int>, 3> parts{wholeOf(text.substr(0, 4)), wholeOf(text.substr(5, 2)),
                                                wholeOf(text.substr(8, 2))};
  if (!parts[0] || !parts[1] || !parts[2]) return {};
  const std::chrono::year_month_day first{std::chrono::year(*parts[0]),
                                          std::chrono::month(static_cast<unsigned>(*parts[1])),
                                          std::chrono::day(static_cast<unsigned>(*parts[2]))};
  if (!first.ok()) return {};
  const std::chrono::year_month_day date{std::chrono::sys_days(first) + std::chrono::days(day)};
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                     static_cast<unsigned>(date.day()));
}

}  // namespace polarline
