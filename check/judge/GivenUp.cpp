#include "check/judge/GivenUp.h"

#include <fmt/format.h>

#include <algorithm>

#include "check/explain/WarningOf.h"
#include "check/judge/Limit.h"

namespace polarline {

void warnOfGivenUp(Check& check) {
  const std::size_t given_up = check.pairs.size() - check.finished();
  const bool is_judged = std::ranges::any_of(check.limits, [](const LimitResult& limit) {
    const std::string figure = parseLimit(limit.text).figure;
    return figure == "given_up" || figure == "finished";
  });
  if (check.verdict != Verdict::kPass || given_up == 0 || is_judged) return;
  check.warnings.push_back(warningOf(
      "pairs_given_up",
      fmt::format("{} of {} pairs were given up; the limit given_up<=0 judges them", given_up, check.pairs.size())));
}

}  // namespace polarline
