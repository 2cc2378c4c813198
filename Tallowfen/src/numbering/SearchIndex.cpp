#include "Tallowfen/src/numbering/SearchIndex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "Tallowfen/src/board/BoardModel.h"
#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/ellipses/Centres.h"
#include "Tallowfen/src/markers/OrderQuad.h"
#include "Tallowfen/src/numbering/ModelCoordinates.h"

namespace kestrune {

namespace {

// The board's grid points in model units, each given away once.
class FreeGrid {
 public:
  explicit FreeGrid(const RingTargetConfig& config) : used_(dotCountOf(config), false) {
    const float step_y = rowPitchOf(config);
    for (int column = 0; column < config.cols; ++column) columns_.push_back(static_cast<float>(column) * config.step);
    for (int row = 0; row < config.rows; ++row) rows_.push_back(static_cast<float>(row) * step_y);
  }

  void release() { used_.assign(used_.size(), false); }

  // The first free grid point, row by row, that is near the point given; it is used from then on.
  std::optional<std::size_t> take(const cv::Point2f& point) {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      if (!(std::abs(point.y - rows_[row]) <= kReach)) continue;
      for (std::size_t column = 0; column < columns_.size(); ++column) {
        const std::size_t index = row * columns_.size() + column;
        if (!(std::abs(point.x - columns_[column]) <= kReach) || used_[index]) continue;
        used_[index] = true;
        return index;
      }
    }
    return std::nullopt;
  }

  cv::Point2f at(std::size_t index) const {
    return {columns_[index % columns_.size()], rows_[index / columns_.size()]};
  }

 private:
  // Model units, along each axis. Meant: the pitch has no part in it.
  static constexpr float kReach = 8.0F;
  std::vector<bool> used_;
  std::vector<float> columns_;
  std::vector<float> rows_;
};

// Meant: the land marks count also while they are switched off, so the grid point (0, 0) is one as long as none is set.
bool standsOnLandMark(const RingTargetConfig& config, const cv::Point2f& point) {
  const std::pair<int, int> place(nearestFive(point.x), nearestFive(point.y));
  const std::array<std::pair<int, int>, kBigDotCount> marks = {{{config.land_mark1_x, config.land_mark1_y},
                                                                {config.land_mark2_x, config.land_mark2_y},
                                                                {config.land_mark3_x, config.land_mark3_y},
                                                                {config.land_mark4_x, config.land_mark4_y}}};
  return std::ranges::find(marks, place) != marks.end();
}

struct Pairs {
  std::vector<cv::Point2f> image;
  std::vector<cv::Point2f> model;
};

// Every dot that the markers' homography maps to a grid point, then the markers.
Pairs matchedPairs(const MarkerSeeds& seeds, const std::vector<Ellipse>& all, FreeGrid& grid) {
  const std::vector<cv::Point2f> mapped = modelFromImage(seeds.marker_image_points, seeds.marker_model_points, all);
  Pairs pairs;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::optional<std::size_t> match = grid.take(mapped[i]);
    if (!match) continue;
    pairs.image.push_back(centreOf(all[i]));
    pairs.model.push_back(grid.at(*match));
  }
  pairs.image.insert(pairs.image.end(), seeds.marker_image_points.begin(), seeds.marker_image_points.end());
  pairs.model.insert(pairs.model.end(), seeds.marker_model_points.begin(), seeds.marker_model_points.end());
  return pairs;
}

// The grid index of each ellipse, in the order of the list.
std::vector<std::optional<std::size_t>> gridIndices(const RingTargetConfig& config, const Pairs& pairs,
                                                    const std::vector<Ellipse>& all, FreeGrid& grid) {
  grid.release();
  std::vector<std::optional<std::size_t>> indices;
  indices.reserve(all.size());
  for (const cv::Point2f& point : modelFromImage(pairs.image, pairs.model, all)) {
    indices.push_back(standsOnLandMark(config, point) ? std::nullopt : grid.take(point));
  }
  return indices;
}

void addNumbered(const Ellipse& ellipse, std::size_t index, NumberedPoints& result) {
  result.identified_ellipses.push_back(ellipse);
  result.identified_ellipses.back().id = static_cast<std::int32_t>(index);
  result.points.push_back(result.identified_ellipses.back());
}

}  // namespace

bool GetCircleIndexBySearch(const RingTargetConfig& config, const std::vector<Ellipse>& bigs,
                            const std::vector<Ellipse>& all, MarkerSeeds& seeds, NumberedPoints& result) {
  if (bigs.size() < kBigDotCount || all.empty()) return false;
  if (!OrderQuad(centresOf(bigs), seeds.marker_image_points)) return false;
  seeds.marker_model_points = BigDotLayout(config, truncated(config.step), truncated(config.step_y));

  FreeGrid grid(config);
  const Pairs pairs = matchedPairs(seeds, all, grid);
  const auto indices = gridIndices(config, pairs, all, grid);
  std::size_t matches = 0;
  for (const auto& index : indices) matches += index ? 1U : 0U;
  seeds.matches = matches;
  if (matches <= all.size() / 2) return true;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (indices[i]) addNumbered(all[i], *indices[i], result);
  }
  return true;
}

}  // namespace kestrune
