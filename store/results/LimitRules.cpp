#include "store/results/LimitRules.h"

#include "check/judge/Limit.h"
#include "polarline/errors.h"

namespace polarline::results {
namespace {

const char* signOf(Limit::Comparison comparison) {
  using enum Limit::Comparison;
  switch (comparison) {
    case kLess:
      return "<";
    case kLessOrEqual:
      return "<=";
    case kGreater:
      return ">";
    case kGreaterOrEqual:
      return ">=";
  }
  return "";
}

}  // namespace

LimitRules::LimitRules(const sqlite::Database& database)
    : add_(database,
           "INSERT OR IGNORE INTO limit_rules(text, figure, statistic, absolute, comparison, bound) "
           "VALUES (?, ?, ?, ?, ?, ?)") {}

void LimitRules::add(const std::string& text) {
  if (!known_.insert(text).second) return;
  try {
    const Limit limit = parseLimit(text);
    add_.run(text, judgedName(limit), limit.statistic, limit.is_absolute, signOf(limit.comparison), limit.bound);
  } catch (const InputError&) {
    add_.run(text, nullptr, nullptr, nullptr, nullptr, nullptr);
  }
}

}  // namespace polarline::results
