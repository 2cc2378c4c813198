#include "diagnose/warnings/OtherPictures.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>

#include "diagnose/warnings/Thresholds.h"

namespace diagnose {
namespace {

using Sights = std::vector<BoardSight>;

/// Changes a sight into what the calibration's own pictures would have shown.
using Change = std::function<void(BoardSight&)>;

double misfitWith(const CalibratedCamera& camera, Sights sights, const Change& change) {
  for (BoardSight& sight : sights) change(sight);
  const auto place = placeBoard(camera, sights);
  if (!place || place->fitting < thresholds::kFittingShare || place->R(2, 2) < 0.0)
    return std::numeric_limits<double>::infinity();
  return place->rms;
}

void keepBetter(Explained& best, Explained other) {
  if (other.rms < best.rms) best = std::move(other);
}

Explained otherSize(const CalibratedCamera& camera, const Sights& sights) {
  Explained best{"", false, std::numeric_limits<double>::infinity()};
  for (const double times : {0.25, 1.0 / 3.0, 0.5, 2.0 / 3.0, 0.75, 4.0 / 3.0, 1.5, 2.0, 3.0, 4.0}) {
    const double rms = misfitWith(camera, sights,
                                  [&](BoardSight& sight) {
                                    sight.pixel = (sight.pixel + cv::Point2d(0.5, 0.5)) * times - cv::Point2d(0.5, 0.5);
                                  }) /
                       times;
    keepBetter(best, {fmt::format("as if the calibration were of pictures {:.3g} times as large", times), false, rms});
  }
  return best;
}

Explained mirrored(const CalibratedCamera& camera, const Sights& sights, const cv::Size& size) {
  Explained best{"", false, std::numeric_limits<double>::infinity()};
  struct Mirror {
    bool x, y;
    const char* text;
  };
  static constexpr std::array kMirrors{
      Mirror{true, false, "as if the calibration were of pictures mirrored left to right"},
      Mirror{false, true, "as if the calibration were of pictures mirrored top to bottom"},
      Mirror{true, true, "as if the calibration were of pictures turned by half a turn"}};
  for (const Mirror& mirror : kMirrors) {
    const double rms = misfitWith(camera, sights, [&](BoardSight& sight) {
      if (mirror.x) sight.pixel.x = size.width - 1 - sight.pixel.x;
      if (mirror.y) sight.pixel.y = size.height - 1 - sight.pixel.y;
      if (mirror.x != mirror.y) sight.board.x = -sight.board.x;  // A mirrored board, else its back would be seen.
    });
    keepBetter(best, {mirror.text, false, rms});
  }
  return best;
}

/// The least misfit over two numbers, by steps that grow smaller (Hooke and Jeeves 1961).
struct Least {
  cv::Point2d at;
  double value = 0.0;
};
Least leastNear(const std::function<double(const cv::Point2d&)>& value, cv::Point2d step, int halvings) {
  Least best{{0.0, 0.0}, value({0.0, 0.0})};
  for (int k = 0; k < halvings; step *= 0.5, ++k) {
    for (int tries = 0; tries < 4; ++tries) {
      const Least before = best;
      for (const cv::Point2d& way : {cv::Point2d(1, 0), cv::Point2d(-1, 0), cv::Point2d(0, 1), cv::Point2d(0, -1)}) {
        const cv::Point2d next(before.at.x + way.x * step.x, before.at.y + way.y * step.y);
        if (next == before.at) continue;
        const double there = value(next);
        if (there < best.value) best = {next, there};
      }
      if (best.at == before.at) break;
    }
  }
  return best;
}

Explained cropped(const CalibratedCamera& camera, const Sights& sights, const cv::Size& size) {
  const Least least = leastNear(
      [&](const cv::Point2d& by) { return misfitWith(camera, sights, [&](BoardSight& sight) { sight.pixel += by; }); },
      cv::Point2d(size.width, size.height) / 8.0, 6);
  return {fmt::format("as if the calibration were of a part of the pictures, or they of a part of its, about {:.0f} "
                      "columns and {:.0f} rows apart",
                      std::abs(least.at.x), std::abs(least.at.y)),
          false, least.value};
}

Explained otherRows(const CalibratedCamera& camera, const Sights& sights) {
  const Least least = leastNear(
      [&](const cv::Point2d& by) {
        return misfitWith(camera, sights, [&](BoardSight& sight) { sight.board.y *= std::exp(by.x); });
      },
      cv::Point2d(0.2, 0.0), 8);
  return {
      fmt::format("as if the board's rows stood {:.3f} times as far apart as they are described", std::exp(least.at.x)),
      true, least.value};
}

}  // namespace

Explained explainMisfit(const CalibratedCamera& camera, const Sights& sights, const cv::Size& picture, double most) {
  Explained best{"", false, most};
  keepBetter(best, otherSize(camera, sights));
  keepBetter(best, mirrored(camera, sights, picture));
  const Explained board = otherRows(camera, sights);
  // A shift has two numbers to fit with, so it must do more.
  Explained shift = cropped(camera, sights, picture);
  if (shift.rms < 0.5 * std::min(best.rms, board.rms)) keepBetter(best, shift);
  if (board.rms < best.rms) keepBetter(best, board);
  return best;
}

}  // namespace diagnose
