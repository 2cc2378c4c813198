#include "check/picture/IdWarnings.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "check/picture/Counted.h"

namespace {

/// A run measures no picture with fewer.
constexpr std::size_t kLeastDots = 6;

std::size_t doubled(const std::vector<polarline::Dot>& dots) {
  std::size_t count = 0;
  for (std::size_t i = 1; i < dots.size(); ++i) count += dots[i].id == dots[i - 1].id ? 1U : 0U;
  return count;
}

}  // namespace

void warnOfIds(polarline::Detection& detection) {
  const int all = detection.board.rows * detection.board.columns;
  const auto beyond = static_cast<std::size_t>(
      std::ranges::count_if(detection.dots, [all](const polarline::Dot& dot) { return dot.id < 0 || dot.id >= all; }));
  const std::size_t twice = doubled(detection.dots);
  if (beyond + twice > 0) {
    detection.warnings.push_back(
        {"strange_ids",
         fmt::format(
             "{} beyond the board's {}, {} twice: marks beside the board were numbered, or the markers were taken "
             "in a wrong order",
             counted(beyond, "id"), all, twice),
         "leave two pitches of even white around the board, and view it less slanted"});
  }
  if (detection.found && detection.dots.size() < kLeastDots) {
    detection.warnings.push_back({"fewer_than_six",
                                  fmt::format("a run measures no picture with fewer than {} dots; this one has {}",
                                              kLeastDots, detection.dots.size()),
                                  "bring more of the board into view"});
  }
}
