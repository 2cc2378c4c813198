#include "check/judge/SignedLimits.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "check/explain/FigureEntries.h"
#include "check/explain/WarningOf.h"

namespace polarline {
namespace {

/// Another limit holds the same number from the other side, or its size.
bool isClosedBy(const Limit& limit, const Limit& other) {
  const bool is_same = limit.figure == other.figure && limit.statistic == other.statistic &&
                       (!other.entry || limit.entry == other.entry);
  return is_same && (other.is_absolute || isUpper(limit) != isUpper(other));
}

std::string withBars(const Limit& limit) {
  const std::size_t name = limit.text.find_first_not_of(" \t");
  const std::size_t end = limit.text.find_last_not_of(" \t", limit.text.find_first_of("<>") - 1) + 1;
  const std::string bound = fmt::format("{}", std::abs(limit.bound));
  return fmt::format("|{}|<={}", limit.text.substr(name, end - name), bound);
}

}  // namespace

void warnOfSigns(const std::vector<Limit>& limits, std::vector<Warning>& warnings) {
  for (const Limit& limit : limits) {
    if (limit.is_absolute || limit.statistic == "sd" || !hasSign(limit.figure)) continue;
    if (std::ranges::any_of(limits, [&](const Limit& other) { return isClosedBy(limit, other); })) continue;
    warnings.push_back(
        warningOf("signed_limit", fmt::format("{} holds however far {} is {} 0; did you mean {}?", limit.text,
                                              limit.figure, isUpper(limit) ? "below" : "above", withBars(limit))));
  }
}

}  // namespace polarline
