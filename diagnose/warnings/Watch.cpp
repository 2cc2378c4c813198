#include "diagnose/warnings/Watch.h"

#include <algorithm>
#include <utility>

#include "diagnose/quality/MeasureQuality.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {
namespace {

/// Several judges see what makes a pair stand out; the first has the better reason.
bool isTold(const Warnings& all, const polarline::Warning& one) {
  return std::ranges::any_of(all, [&](const polarline::Warning& each) {
    return each.code == one.code && (each.pair == one.pair || each.pair == -1 || one.pair == -1);
  });
}

}  // namespace

Watch::Watch(SetFacts facts) : facts_(std::move(facts)), cameras_(camerasOf(facts_)) {}

polarline::PairQuality Watch::look(const PairView& view) {
  looks_.push_back(lookAtPair(facts_, cameras_, view));
  noteWorst();
  dropSights();
  const auto& sides = looks_.back().sides;
  return pairQuality(sides[0].quality, sides[1].quality);
}

void Watch::noteWorst() {
  for (const std::size_t side : {0U, 1U}) {
    const SideLook& one = looks_.back().sides.at(side);
    if (!isMisfit(one)) continue;
    if (!worst_ || one.place->rms > looks_.at(worst_->first).sides.at(worst_->second).place->rms)
      worst_ = {looks_.size() - 1, side};
  }
}

// Some pairs from all over the run, and the worst picture, are enough to look for what would explain a misfit; the
// dots of all would be the whole set.
void Watch::dropSights() {
  constexpr std::size_t kMostKept = 6;
  if (looks_.size() > kMostKept * step_) step_ *= 2;
  for (std::size_t k = 0; k < looks_.size(); ++k) {
    for (const std::size_t side : {0U, 1U}) {
      if (k % step_ != 0 && worst_ != std::pair(k, side)) looks_[k].sides.at(side).sights = {};
    }
  }
}

std::vector<polarline::Warning> Watch::warnings(const AskedLimits& limits) const {
  Warnings all;
  const auto add = [&](Warnings some) {
    for (polarline::Warning& one : some) {
      if (!isTold(all, one)) all.push_back(std::move(one));
    }
  };
  add(judgeGeometry(facts_, cameras_, looks_));
  add(judgeDots(facts_, looks_));
  add(judgeLight(looks_));
  add(judgeSet(looks_));
  add(judgeFigures(facts_, looks_, limits));
  return all;
}

}  // namespace diagnose
