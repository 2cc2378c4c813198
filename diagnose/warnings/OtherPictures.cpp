#include "diagnose/warnings/OtherPictures.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>

#include "diagnose/warnings/Thresholds.h"
#include "platform/PlainNumber.h"

namespace diagnose {
namespace {

using Pictures = std::vector<SeenBoard>;

/// @param times How much larger the changed pictures are.
Explained with(const Pictures& pictures, const PictureChange& change, const std::string& text, double times = 1.0) {
  Explained explained{text, false, 0.0, misfitsWith(pictures, change), false};
  for (double& misfit : explained.each) misfit /= times;
  explained.rms = rmsOf(explained.each);
  return explained;
}

Explained nothing() { return {"", false, std::numeric_limits<double>::infinity(), {}, false}; }

void keepBetter(Explained& best, Explained other) {
  if (other.rms < best.rms) best = std::move(other);
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

/// Sizes that cameras are often switched to, and then those beside the best of them.
Explained otherSize(const Pictures& pictures) {
  const auto misfit = [&](double times) { return rmsOf(misfitsWith(pictures, resized(times))) / times; };
  double best = 1.0;
  double least = std::numeric_limits<double>::infinity();
  for (const double times : {0.25, 1.0 / 3.0, 0.5, 2.0 / 3.0, 0.75, 0.9, 1.1, 4.0 / 3.0, 1.5, 2.0, 3.0, 4.0}) {
    const double there = misfit(times);
    if (there < least) best = times;
    least = std::min(least, there);
  }
  best *=
      std::exp(leastNear([&](const cv::Point2d& by) { return misfit(best * std::exp(by.x)); }, {0.08, 0.0}, 6).at.x);
  if (std::abs(std::log(best)) < std::log(1.0 + thresholds::kOtherSize)) return nothing();
  return with(pictures, resized(best),
              fmt::format("as if the calibration were of pictures {:.3g} times as large", best), best);
}

Explained otherWayRound(const Pictures& pictures) {
  struct Mirror {
    bool is_x, is_y;
    const char *lens, *centre;
  };
  static constexpr std::array kMirrors{
      Mirror{true, false, "as if the calibration were of pictures mirrored left to right",
             "as if its Cx were counted from the right edge"},
      Mirror{false, true, "as if the calibration were of pictures mirrored top to bottom",
             "as if its Cy were counted from the lower edge"},
      Mirror{true, true, "as if the calibration were of pictures turned by half a turn",
             "as if its Cx and Cy were counted from the right and the lower edge"}};
  Explained best = nothing();
  for (const Mirror& mirror : kMirrors) {
    keepBetter(best, with(pictures, mirrored(mirror.is_x, mirror.is_y), mirror.lens));
    keepBetter(best, with(pictures, countedFromOtherEdge(mirror.is_x, mirror.is_y), mirror.centre));
  }
  best.is_mirror = true;
  return best;
}

Explained cropped(const Pictures& pictures) {
  const cv::Point2d size(pictures.front().size.width, pictures.front().size.height);
  const cv::Point2d by =
      leastNear([&](const cv::Point2d& at) { return rmsOf(misfitsWith(pictures, shifted(at))); }, size / 8.0, 8).at;
  if (std::abs(by.x) < thresholds::kCropped * size.x && std::abs(by.y) < thresholds::kCropped * size.y)
    return nothing();  // A principal point that is a little off is a cause.
  return with(
      pictures, shifted(by),
      fmt::format("as if the calibration were of a part of the pictures, or they of a part of its, about {:.0f} "
                  "columns and {:.0f} rows apart",
                  std::abs(by.x), std::abs(by.y)));
}

Explained otherRows(const Pictures& pictures) {
  const double times =
      std::exp(leastNear([&](const cv::Point2d& by) { return rmsOf(misfitsWith(pictures, rowsApart(std::exp(by.x)))); },
                         {0.2, 0.0}, 8)
                   .at.x);
  Explained explained =
      with(pictures, rowsApart(times),
           fmt::format("as if the board's rows stood {:.3f} times as far apart as they are described", times));
  explained.is_board = true;
  return explained;
}

}  // namespace

Explained explainMisfit(const Pictures& pictures, double most) {
  Explained best = nothing();
  best.rms = most;
  keepBetter(best, otherSize(pictures));
  keepBetter(best, otherWayRound(pictures));
  Explained board = otherRows(pictures);
  // A shift has two numbers to fit with, so it must do more.
  Explained shift = cropped(pictures);
  if (shift.rms < 0.5 * std::min(best.rms, board.rms)) keepBetter(best, std::move(shift));
  keepBetter(best, std::move(board));
  return best;
}

std::string missingText(double rms) {
  return fmt::format("The board through the lens misses the dots by {} pixels (root mean square)",
                     plain::rounded(rms, 2));
}

std::string meetingText(const std::string& wrong, const Explained& explained) {
  return fmt::format("{}; it would meet them to {} pixels, {}", wrong, plain::rounded(explained.rms, 2),
                     explained.text);
}

}  // namespace diagnose
