#include "diagnose/warnings/Watch.h"

#include <iterator>
#include <utility>

#include "diagnose/quality/MeasureQuality.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {

Watch::Watch(SetFacts facts) : facts_(std::move(facts)), cameras_(camerasOf(facts_)) {}

polarline::PairQuality Watch::look(const PairView& view) {
  looks_.push_back(lookAtPair(facts_, cameras_, view));
  keepWorstSights();
  const auto& sides = looks_.back().sides;
  return pairQuality(sides[0].quality, sides[1].quality);
}

// One picture is enough to look for what would explain a misfit; the dots of all would be the whole set.
void Watch::keepWorstSights() {
  for (const std::size_t side : {0U, 1U}) {
    SideLook& one = looks_.back().sides.at(side);
    if (!isMisfit(one)) continue;
    SideLook* const worst = worst_ ? &looks_.at(worst_->first).sides.at(worst_->second) : nullptr;
    const bool is_worse = worst == nullptr || one.place->rms > worst->place->rms;
    if (is_worse && worst != nullptr) worst->sights = {};
    if (is_worse) worst_ = {looks_.size() - 1, side};
    if (!is_worse) one.sights = {};
  }
}

std::vector<polarline::Warning> Watch::warnings(const AskedLimits& limits) const {
  std::vector<polarline::Warning> all;
  const auto add = [&](std::vector<polarline::Warning> some) {
    all.insert(all.end(), std::make_move_iterator(some.begin()), std::make_move_iterator(some.end()));
  };
  add(judgeGeometry(facts_, cameras_, looks_));
  add(judgeDots(facts_, looks_));
  add(judgeLight(looks_));
  add(judgeSet(looks_));
  add(judgeFigures(facts_, looks_, limits));
  return all;
}

}  // namespace diagnose
