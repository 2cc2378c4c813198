#include "polar/results/PairObservation.h"

std::vector<SharedDot> sharedDots(const MeasuredPair& pair) {
  std::vector<SharedDot> dots;
  dots.reserve(pair.left_by_id.size());
  for (const auto& [id, pixel_left] : pair.left_by_id) {
    const auto right = pair.right_by_id.find(id);
    if (right != pair.right_by_id.end()) dots.push_back({id, pixel_left, right->second});
  }
  return dots;
}
