#include "Tallowfen/src/numbering/CoveredDots.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

#include "Tallowfen/src/ellipses/Centres.h"
#include "Tallowfen/src/numbering/ModelCoordinates.h"

namespace kestrune {

namespace {

// Pixels between the marker's centre and the mean of its diagonal neighbours.
constexpr float kMostOffMean = 5.0F;
// Radians between opposite sides: a view in perspective keeps small parallelograms nearly so.
constexpr double kFiveDegrees = 0.08726646259971647;

// The diagonal neighbours of a marker.
enum Diagonal : std::size_t { kUpperLeft, kUpperRight, kLowerLeft, kLowerRight };
using DiagonalCells = std::array<CellMap::Cell, 4>;
using DiagonalDots = std::array<std::size_t, 4>;

DiagonalCells diagonalsOf(CellMap::Cell marker, CellMap::Cell cols) {
  return {marker - cols - 1, marker - cols + 1, marker + cols - 1, marker + cols + 1};
}

bool formParallelogram(std::size_t marker, const DiagonalDots& dots, const std::vector<Ellipse>& all) {
  return ParallelogramCheck(centreOf(all[marker]), centreOf(all[dots[kUpperLeft]]), centreOf(all[dots[kLowerLeft]]),
                            centreOf(all[dots[kUpperRight]]), centreOf(all[dots[kLowerRight]]));
}

// Leaves in a cell of several ellipses the first that makes a parallelogram with the other three neighbours. False when
// none does.
bool settleCrowdedCell(std::size_t marker, std::size_t crowded, const DiagonalCells& diagonals, DiagonalDots& dots,
                       CellMap& cells, const std::vector<Ellipse>& all) {
  for (const std::size_t entry : cells.allOf(diagonals[crowded])) {
    dots[crowded] = entry;
    if (!formParallelogram(marker, dots, all)) continue;
    cells.keepOnly(diagonals[crowded], entry);
    return true;
  }
  return false;
}

// One ellipse for each diagonal neighbour, or nothing when the marker gets no made-up dots.
std::optional<DiagonalDots> diagonalDots(CellMap::Cell marker, CellMap& cells, const std::vector<Ellipse>& all) {
  if (cells.count(marker) != 1) return std::nullopt;
  const DiagonalCells diagonals = diagonalsOf(marker, cells.cols());
  DiagonalDots dots{};
  std::optional<std::size_t> crowded;
  for (std::size_t i = 0; i < diagonals.size(); ++i) {
    const std::size_t count = cells.count(diagonals[i]);
    if (count == 0 || (count > 1 && crowded)) return std::nullopt;
    dots[i] = cells.first(diagonals[i]);
    if (count > 1) crowded = i;
  }
  if (crowded && !settleCrowdedCell(cells.first(marker), *crowded, diagonals, dots, cells, all)) return std::nullopt;
  return dots;
}

Ellipse midpoint(const Ellipse& a, const Ellipse& b) {
  Ellipse made;
  made.x = (a.x + b.x) / 2;
  made.y = (a.y + b.y) / 2;
  made.sigma = 0;
  made.point_class = morvenkit::kDot;
  return made;
}

void addMidpoint(std::size_t a, std::size_t b, CellMap::Cell cell, CellMap& cells, std::vector<Ellipse>& all) {
  cells.add(cell, all.size());
  all.push_back(midpoint(all[a], all[b]));
}

}  // namespace

void addCoveredDots(const std::vector<cv::Point2f>& marker_model_points, CellMap& cells, std::vector<Ellipse>& all) {
  for (const cv::Point2f& point : marker_model_points) {
    const CellMap::Cell marker = cells.cellOf(truncated(point.x), truncated(point.y));
    const std::optional<DiagonalDots> dots = diagonalDots(marker, cells, all);
    if (!dots) continue;
    const auto [upperLeft, upperRight, lowerLeft, lowerRight] = *dots;
    addMidpoint(upperLeft, upperRight, marker - cells.cols(), cells, all);
    addMidpoint(upperLeft, lowerLeft, marker - 1, cells, all);
    addMidpoint(upperRight, lowerRight, marker + 1, cells, all);
    addMidpoint(lowerLeft, lowerRight, marker + cells.cols(), cells, all);
  }
}

bool ParallelogramCheck(const cv::Point2f& marker, const cv::Point2f& upper_left, const cv::Point2f& lower_left,
                        const cv::Point2f& upper_right, const cv::Point2f& lower_right) {
  const cv::Point2f sum = upper_left + lower_left + upper_right + lower_right;
  const cv::Point2f offset = cv::Point2f(sum.x / 4.0F, sum.y / 4.0F) - marker;
  const float distance = std::sqrt(offset.x * offset.x + offset.y * offset.y);
  if (!(distance < kMostOffMean)) return false;
  const float rows = std::abs(cosineBetween(upper_right - upper_left, lower_right - lower_left));
  const float columns = std::abs(cosineBetween(lower_left - upper_left, lower_right - upper_right));
  return rows > std::cos(kFiveDegrees) && columns > std::cos(kFiveDegrees);
}

}  // namespace kestrune
