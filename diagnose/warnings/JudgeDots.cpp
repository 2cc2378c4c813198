#include <fmt/format.h>

#include "diagnose/warnings/Findings.h"
#include "diagnose/warnings/Judges.h"
#include "diagnose/warnings/Thresholds.h"

namespace diagnose {
namespace {

std::vector<Finding> missing(const SetFacts& facts, const Looks& looks) {
  const auto all = static_cast<double>(facts.board.size());
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    for (const int side : {0, 1}) {
      const auto found = static_cast<double>(pair.sides.at(static_cast<std::size_t>(side)).found);
      if (found == 0.0 || found >= thresholds::kFoundShare * all) continue;  // 0: the pair's own reason tells it.
      findings.push_back(
          {pair.index, side, -found, fmt::format("{:.0f} of the board's {:.0f} dots were numbered", found, all)});
    }
  }
  return findings;
}

std::vector<Finding> strange(const SetFacts& facts, const Looks& looks) {
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    if (pair.strange_ids.empty()) continue;
    findings.push_back({pair.index, Finding::kPair, static_cast<double>(pair.strange_ids.size()),
                        fmt::format("{} dots have ids that the board of {} dots does not have, {} is one",
                                    pair.strange_ids.size(), facts.board.size(), pair.strange_ids[0])});
  }
  return findings;
}

std::vector<Finding> ghosts(const Looks& looks) {
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    for (const int side : {0, 1}) {
      const auto& ghosts = pair.sides.at(static_cast<std::size_t>(side)).ghosts;
      if (ghosts.empty()) continue;
      const GhostDot& first = ghosts.front();
      const std::string others = ghosts.size() == 1 ? "" : fmt::format(", as one of {}", ghosts.size());
      findings.push_back(
          {pair.index, side, first.off,
           fmt::format("Dot {} stands {:.1f} pixels from where the others put it{}", first.id, first.off, others)});
    }
  }
  return findings;
}

}  // namespace

Warnings judgeDots(const SetFacts& facts, const Looks& looks) {
  Warnings warnings;
  if (facts.board.empty()) return warnings;
  const auto add = [&](const char* code, const std::vector<Finding>& findings) {
    if (auto one = told(code, findings, looks.size())) warnings.push_back(std::move(*one));
  };
  add("too_few_dots", missing(facts, looks));
  add("strange_ids", strange(facts, looks));
  add("ghost_dots", ghosts(looks));
  return warnings;
}

}  // namespace diagnose
