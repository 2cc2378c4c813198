#pragma once

#include "refine/edge/EdgeDeparture.h"

/// What an edge with the normal (nx, ny) has beside the smooth one at the distance t.
inline float departureAt(const refine::EdgeDeparture& departure, float t, float nx, float ny) {
  const auto all = [](float value) { return refine::lanesOf([value](std::size_t) { return value; }); };
  refine::Lanes shares{};
  departure.addDepartures(all(t), all(nx), all(ny), shares);
  return shares.back();
}
