#include "check/refined/RefinedReading.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <utility>

#include "check/figures/PairReading.h"
#include "check/figures/PairReason.h"

namespace polarline {
namespace {

constexpr float kUnknown = std::numeric_limits<float>::quiet_NaN();

using DotsById = std::map<std::int32_t, const RefinedDot*>;

DotsById byId(const RefinedPicture& picture, const std::vector<std::int32_t>& frame_ids) {
  DotsById dots;
  for (const RefinedDot& dot : picture.dots) {
    dots.emplace(frame_ids.empty() ? dot.id : frame_ids.at(static_cast<std::size_t>(dot.id)), &dot);
  }
  return dots;
}

/// The lists of one picture.
struct Side {
  std::vector<float>&x, &y, &sd_x, &sd_y;
  std::vector<DotState>& state;
};

void fillSide(const std::vector<std::int32_t>& ids, const DotsById& dots, const Side& side) {
  for (auto* list : {&side.sd_x, &side.sd_y}) list->assign(ids.size(), kUnknown);
  side.state.assign(ids.size(), DotState::kUnclear);
  for (std::size_t k = 0; k < ids.size(); ++k) {
    const auto found = dots.find(ids[k]);
    if (found == dots.end()) continue;
    const RefinedDot& dot = *found->second;
    side.state[k] = dot.state;
    side.sd_x[k] = static_cast<float>(std::sqrt(dot.xx));
    side.sd_y[k] = static_cast<float>(std::sqrt(dot.yy));
    // Where only rectified pictures were evaluated, no evaluation has seen the dot here.
    if (std::isnan(side.x[k])) side.x[k] = static_cast<float>(dot.x);
    if (std::isnan(side.y[k])) side.y[k] = static_cast<float>(dot.y);
  }
}

RefinedPoints refinedPointsOf(const PairObservation& seen, const RefinedPictures& pictures,
                              const std::vector<std::int32_t>& frame_ids) {
  RefinedPoints points;
  static_cast<PairPoints&>(points) = pointsOf(seen);
  fillSide(points.id, byId(pictures[0], frame_ids),
           {points.left_x, points.left_y, points.left_sd_x, points.left_sd_y, points.left_state});
  fillSide(points.id, byId(pictures[1], frame_ids),
           {points.right_x, points.right_y, points.right_sd_x, points.right_sd_y, points.right_state});
  return points;
}

std::size_t refinedIn(const RefinedPicture& picture) {
  return static_cast<std::size_t>(std::ranges::count(picture.dots, DotState::kRefined, &RefinedDot::state));
}

}  // namespace

RefinedPair nothingRefined() {
  RefinedPair pair;
  pair.figures = ownFigures(PairEvaluator(std::make_shared<const PolarConfig>()));
  return pair;
}

RefinedPair readRefined(std::int32_t status, const PairEvaluator& evaluator, const RefinedPictures& pictures,
                        const std::vector<std::int32_t>& frame_ids) {
  RefinedPair pair = nothingRefined();
  pair.refined_left = refinedIn(pictures[0]);
  pair.refined_right = refinedIn(pictures[1]);
  pair.points = refinedPointsOf(evaluator.seen, pictures, frame_ids);
  if (status == 0) {
    pair.figures = ownFigures(evaluator);
  } else {
    pair.problem = reasonOf(status, evaluator).text;
  }
  return pair;
}

}  // namespace polarline
