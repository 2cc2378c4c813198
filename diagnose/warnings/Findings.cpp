#include "diagnose/warnings/Findings.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "diagnose/warnings/Codes.h"

namespace diagnose {
namespace {

constexpr std::size_t kMostNamed = 6;

std::string listed(const std::set<std::size_t>& pairs) {
  std::string text;
  std::size_t k = 0;
  for (const std::size_t pair : pairs) {
    const char* const before = k == 0 ? "" : (k + 1 == pairs.size() ? " and " : ", ");
    text += fmt::format("{}{}", before, pair);
    ++k;
  }
  return text;
}

std::string pairsText(const std::set<std::size_t>& found, std::size_t pairs) {
  if (found.size() == 1) return fmt::format("pair {}", *found.begin());
  if (found.size() == pairs) return fmt::format("all {} pairs", pairs);
  if (found.size() <= kMostNamed) return "pairs " + listed(found);
  return fmt::format("{} of {} pairs, the first is {}", found.size(), pairs, *found.begin());
}

std::string whereText(const std::vector<Finding>& findings, std::size_t pairs) {
  std::set<std::size_t> found;
  std::set<int> sides;
  for (const Finding& finding : findings) {
    found.insert(finding.pair);
    sides.insert(finding.side);
  }
  const std::string of_pairs = pairsText(found, pairs);
  if (sides.contains(Finding::kPair)) return "in " + of_pairs;
  const char* const plural = found.size() == 1 ? "" : "s";
  if (sides.size() == 2) return "in both pictures of " + of_pairs;
  return fmt::format("in the {} picture{} of {}", *sides.begin() == 0 ? "left" : "right", plural, of_pairs);
}

}  // namespace

std::optional<polarline::Warning> told(const std::string& code, const std::vector<Finding>& findings,
                                       std::size_t pairs) {
  if (findings.empty()) return std::nullopt;
  const Finding& heaviest = *std::ranges::max_element(findings, {}, &Finding::weight);
  const bool is_one = std::ranges::all_of(findings, [&](const Finding& each) { return each.pair == heaviest.pair; });
  return warning(code, heaviest.text + ", " + whereText(findings, pairs),
                 is_one ? static_cast<int>(heaviest.pair) : -1);
}

}  // namespace diagnose
