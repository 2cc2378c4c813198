#include "Tallowfen/src/numbering/SeedNeighbours.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <utility>

#include "Tallowfen/src/numbering/CellMap.h"
#include "Tallowfen/src/numbering/CoveredDots.h"
#include "Tallowfen/src/numbering/ModelCoordinates.h"
#include "platform/Console.h"

namespace kestrune {

namespace {

constexpr std::size_t kBlockSize = 9;
// Below this the failure is told. Only a complete block is ever listed, so eight never occur: the limit and its text
// are the detector's own.
constexpr std::size_t kFewestSeeds = 8;

// Numbers the ellipses that are alone in their cell of the marker's block; a cell of none or several counts as missing.
std::vector<std::int32_t> numberBlock(const cv::Point2f& marker, const CellMap& cells, std::vector<Ellipse>& all) {
  const int x = truncated(marker.x);
  const int y = truncated(marker.y);
  std::vector<std::int32_t> members;
  for (const int gy : {y - kGridStep, y, y + kGridStep}) {
    for (const int gx : {x - kGridStep, x, x + kGridStep}) {
      const CellMap::Cell cell = cells.cellOf(gx, gy);
      if (cells.count(cell) != 1) continue;
      const std::size_t position = cells.first(cell);
      all[position].id = idOf(0, cell);
      members.push_back(static_cast<std::int32_t>(position));
    }
  }
  return members;
}

}  // namespace

bool SeedNeighbours(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<cv::Point>& grid,
                    std::vector<Ellipse>& all, MarkerSeeds& seeds) {
  CellMap cells(config.cols, grid);
  if (sizes.solid_big) addCoveredDots(seeds.marker_model_points, cells, all);
  seeds.seed_indices.clear();
  for (const cv::Point2f& marker : seeds.marker_model_points) {
    std::vector<std::int32_t> members = numberBlock(marker, cells, all);
    seeds.fullest_block = std::max(seeds.fullest_block, members.size());
    if (members.size() < kBlockSize) continue;
    seeds.seed_indices = std::move(members);
    break;
  }
  const std::size_t count = seeds.seed_indices.size();
  if (count >= kFewestSeeds) return true;
  console::err() << cv::format("Do not have enough ring neighbors: %lu, which should be more than 8!",
                               static_cast<unsigned long>(count))
                 << "\n";
  return false;
}

bool seedFromMarkers(const RingTargetConfig& config, const MarkerSizes& sizes, std::vector<Ellipse>& all,
                     MarkerSeeds& seeds) {
  std::vector<cv::Point> grid;
  grid.reserve(all.size());
  for (const cv::Point2f& point : modelFromImage(seeds.marker_image_points, seeds.marker_model_points, all)) {
    grid.emplace_back(nearestFive(point.x), nearestFive(point.y));
  }
  return SeedNeighbours(config, sizes, grid, all, seeds);
}

}  // namespace kestrune
