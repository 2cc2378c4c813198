#include "report/words/PairSentences.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "platform/PlainNumber.h"
#include "polar/evaluate/raw/CountedErrors.h"

namespace polarline {
namespace {

constexpr const char* kNotMeasured = "Not measured in this pair.";

std::string number(double value) { return plain::rounded(value, 3); }
std::string px(double value) { return number(value) + " pixels"; }
std::string units(double value) { return number(value) + " board units"; }

/// What is told of, at the beginning of a sentence and within one.
struct Subject {
  const char* first;
  const char* all;
  const char* mean;
};
constexpr Subject kRows = {"Row difference", "the row differences", "Mean row difference"};
constexpr Subject kRemains = {"What remains without the causes",
                              "what remains of the row differences without the causes",
                              "Mean of what remains without the causes"};

std::string mapText(const RowMeasures& measures, const Subject& subject) {
  const Spread& dy = measures.dy;
  if (dy.count == 0) return kNotMeasured;
  std::string text = fmt::format("{} of {} dots over the picture: from {} to {}, mean {}.", subject.first, dy.count,
                                 number(dy.min), px(dy.max), px(dy.mean));
  if (measures.along && measures.across) {
    text += fmt::format(" In 1000 pixels it changes by {} along the picture and by {} across it.",
                        px(1000.0 * measures.along->slope), px(1000.0 * measures.across->slope));
  }
  return text;
}

std::string histogramText(const Spread& dy, const Subject& subject) {
  if (dy.count == 0) return kNotMeasured;
  return fmt::format(
      "Distribution of {}: half of them are below {} and half above; their mean size is {}, and 95 % "
      "of them are at most {} in size.",
      subject.all, number(dy.median), px(dy.mean_abs), px(dy.p95_abs));
}

std::string courseText(const std::optional<Course>& course, const char* way, const Subject& subject) {
  if (!course) return kNotMeasured;
  const auto [least, most] = std::ranges::minmax(course->mean);
  return fmt::format(
      "{} {} the picture in {} stripes: from {} to {}; a line through all dots "
      "changes by {} in 1000 pixels.",
      subject.mean, way, course->mean.size(), number(least), px(most), px(1000.0 * course->slope));
}

/// The library's figures leave out what is larger; the plots show every dot.
std::string notCountedText(const std::vector<double>& residuals) {
  const auto above = std::ranges::count_if(residuals, [](double each) { return each > kLargestResidual; });
  if (above == 0) return {};
  return fmt::format(" {} above {:g} pixels {} not count in tri_rms, tri_mean, tri_max.",
                     above == 1 ? "1 dot" : fmt::format("{} dots", above), kLargestResidual,
                     above == 1 ? "does" : "do");
}

std::string residualText(const Spread& residual, const std::vector<double>& residuals) {
  if (residual.count == 0) return kNotMeasured;
  return fmt::format("Residual of the triangulation of {} dots: mean {}, 95 % of them at most {}, largest {}.{}",
                     residual.count, px(residual.mean), px(residual.p95_abs), px(residual.max),
                     notCountedText(residuals));
}

std::string distancesText(const std::vector<DistanceBin>& bins) {
  if (bins.empty()) return kNotMeasured;
  std::size_t count = 0;
  for (const DistanceBin& bin : bins) count += bin.count;
  const auto size = [](const DistanceBin& bin) { return std::max(std::abs(bin.min), std::abs(bin.max)); };
  const DistanceBin& worst = *std::ranges::max_element(bins, {}, size);
  return fmt::format(
      "Errors of {} distances between dots by the true distance: mean {} among the shortest, {} "
      "among the longest; the largest error is {}.",
      count, number(bins.front().mean), units(bins.back().mean), units(size(worst)));
}

std::string depthText(const Spread& depth) {
  if (depth.count == 0) return kNotMeasured;
  return fmt::format("Depth error of {} dots against the fitted board: from {} to {}, standard deviation {}.",
                     depth.count, number(depth.min), units(depth.max), units(depth.sd));
}

std::string disparityText(const Spread& disparity) {
  if (disparity.count == 0) return kNotMeasured;
  return fmt::format("Disparity of {} dots: from {} to {} pixels, mean {} pixels.", disparity.count,
                     plain::rounded(disparity.min, 4), plain::rounded(disparity.max, 4),
                     plain::rounded(disparity.mean, 4));
}

std::string boardText(const BoardFit& board) {
  double squares = 0.0;
  double largest = 0.0;
  std::size_t count = 0;
  for (std::size_t k = 0; k < board.off_x.size(); ++k) {
    const double off = std::hypot(board.off_x[k], board.off_y[k], board.off_z[k]);
    if (!std::isfinite(off)) continue;
    ++count;
    squares += off * off;
    largest = std::max(largest, off);
  }
  if (count == 0) return kNotMeasured;
  return fmt::format(
      "Measured board against the true one, {} dots: root mean square {}, largest {}; off the plane "
      "from {} to {}.",
      count, units(std::sqrt(squares / static_cast<double>(count))), units(largest), number(spreadOf(board.off_z).min),
      units(spreadOf(board.off_z).max));
}

std::string worstText(const DotLists& dots, const PairMeasures& measures) {
  if (measures.worst.empty()) return kNotMeasured;
  const std::vector<double>& values = measures.worst_by_dy ? dots.dy : dots.residual;
  const std::size_t first = measures.worst.front();
  return fmt::format("The {} dots with the largest {}: first dot {} with {}.", measures.worst.size(),
                     measures.worst_by_dy ? "row difference" : "residual", dots.id[first], px(values[first]));
}

RowSentences rowSentences(const RowMeasures& rows, const Subject& subject) {
  return {mapText(rows, subject), histogramText(rows.dy, subject), courseText(rows.along, "along", subject),
          courseText(rows.across, "across", subject)};
}

}  // namespace

RowSentences remainsSentences(const RowMeasures& remains) { return rowSentences(remains, kRemains); }

PairSentences pairSentences(const DotLists& dots, const PairMeasures& measures) {
  return {rowSentences(measures.rows, kRows),
          residualText(measures.residual, dots.residual),
          distancesText(measures.distances),
          depthText(measures.depth_error),
          disparityText(measures.disparity_spread),
          boardText(measures.board),
          worstText(dots, measures)};
}

}  // namespace polarline
