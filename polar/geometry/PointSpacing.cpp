#include "polar/geometry/PointSpacing.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "polar/geometry/FloatStatistics.h"
#include "polar/geometry/PointDistance.h"

namespace {

float distanceOf(const CloudPoint& a, const CloudPoint& b) {
  return static_cast<float>(pointDistance({a.x, a.y, a.z}, {b.x, b.y, b.z}));
}

SpacingFigures figuresOf(const std::vector<float>& spacings, float pattern_step) {
  SpacingFigures figures;
  for (const float spacing : spacings) {
    const float error = std::abs(spacing - pattern_step);
    if (error > figures.max) figures.max = error;
    if (error < figures.min) figures.min = error;
  }
  const FloatStatistics statistics = floatStatistics(spacings);
  figures.mean_error = std::abs(statistics.mean - pattern_step);
  figures.variance = statistics.variance;
  return figures;
}

}  // namespace

void measureSpacing(std::vector<CloudPoint>& cloud, std::int32_t pattern_cols) {
  // Ids are widened, so that the sums below cannot leave their range; of equal ids the first one is found.
  std::unordered_map<std::int64_t, std::size_t> place_by_id;
  place_by_id.reserve(cloud.size());
  for (std::size_t i = 0; i < cloud.size(); ++i) place_by_id.emplace(cloud[i].id, i);

  for (std::size_t i = 0; i < cloud.size(); ++i) {
    const std::int64_t id = cloud[i].id;
    if (i + 1 < cloud.size() && cloud[i + 1].id == id + 1) cloud[i].row_dist = distanceOf(cloud[i], cloud[i + 1]);
    const auto below = place_by_id.find(id + pattern_cols);
    if (below != place_by_id.end()) cloud[i].col_dist = distanceOf(cloud[i], cloud[below->second]);
  }
}

PointSpacing spacingFigures(const std::vector<CloudPoint>& cloud, float pattern_step) {
  std::vector<float> rows;
  std::vector<float> columns;
  for (const CloudPoint& point : cloud) {
    if (point.row_dist != 0.0F) rows.push_back(point.row_dist);
    if (point.col_dist != 0.0F) columns.push_back(point.col_dist);
  }
  PointSpacing spacing;
  spacing.row = figuresOf(rows, pattern_step);
  spacing.column = figuresOf(columns, pattern_step);

  rows.insert(rows.end(), columns.begin(), columns.end());
  const FloatStatistics together = floatStatistics(rows);
  spacing.all.mean_error = std::abs(together.mean - pattern_step);
  spacing.all.variance = together.variance;
  spacing.all.min = std::min(spacing.row.min, spacing.column.min);
  // The rows' largest error is compared with the columns' smallest one, which is meant: the figure can be the smaller
  // of the two largest.
  spacing.all.max = spacing.row.max > spacing.column.min ? spacing.row.max : spacing.column.max;
  return spacing;
}
