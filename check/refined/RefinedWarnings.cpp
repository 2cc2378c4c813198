#include "check/refined/RefinedWarnings.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "check/explain/WarningOf.h"
#include "check/refined/UnrefinedStates.h"

namespace polarline {
namespace {

constexpr const char* kFailed = "refining_failed";
constexpr const char* kFew = "few_refined";

std::size_t countOf(const RefinedPicture& picture, DotState state) {
  return static_cast<std::size_t>(std::ranges::count(picture.dots, state, &RefinedDot::state));
}

/// What most of the dots that were not refined are.
DotState commonest(const RefinedPicture& picture) {
  return *std::ranges::max_element(kUnrefinedStates, {}, [&](DotState state) { return countOf(picture, state); });
}

}  // namespace

bool RefinedWarnings::isNew(const char* code) const { return std::ranges::count(list, code, &Warning::code) == 0; }

void RefinedWarnings::lookAtStates(std::size_t pair, const RefinedPicture& picture, const char* side) {
  const std::size_t refined = countOf(picture, DotState::kRefined);
  if (2 * refined >= picture.dots.size() || !isNew(kFew)) return;
  list.push_back(
      warningOf(kFew,
                fmt::format("pair {}: {} of {} dots of the {} picture could be refined; most of the others are {}",
                            pair, refined, picture.dots.size(), side, nameOf(commonest(picture))),
                static_cast<int>(pair)));
}

void RefinedWarnings::look(const PairCheck& pair, const RefinedPair& refined, const RefinedPictures& pictures) {
  if (!refined.problem.empty() && isNew(kFailed)) {
    list.push_back(warningOf(kFailed, fmt::format("pair {} has no refined figures: {}", pair.index, refined.problem),
                             static_cast<int>(pair.index)));
  }
  lookAtStates(pair.index, pictures[0], "left");
  lookAtStates(pair.index, pictures[1], "right");
}

}  // namespace polarline
