#include "Tallowfen/src/numbering/GrowGrid.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <set>

#include "Tallowfen/src/numbering/CentreGrid.h"
#include "Tallowfen/src/numbering/GridMesh.h"

namespace kestrune {

namespace {

constexpr std::size_t kSeeds = 9;
// A dot may be this much of the local pitch off its prediction; beyond it the next dot could be meant.
constexpr double kShareOfPitch = 0.3;
// The square of five: a dot's outline, so many times as large, must reach the prediction.
constexpr double kOutlineFactorSquared = 25;

std::vector<cv::Point2d> exactCentres(const std::vector<Ellipse>& all) {
  std::vector<cv::Point2d> centres;
  centres.reserve(all.size());
  for (const Ellipse& ellipse : all) centres.emplace_back(ellipse.x, ellipse.y);
  return centres;
}

// Nine different positions in the list: a block of cells beyond a narrow board's edge can name one ellipse twice.
bool canSeed(const std::vector<std::int32_t>& seeds, std::size_t ellipse_count) {
  if (seeds.size() < kSeeds) return false;
  const std::set<std::int32_t> different(seeds.begin(), seeds.begin() + kSeeds);
  return different.size() == kSeeds && *different.begin() >= 0 &&
         static_cast<std::size_t>(*different.rbegin()) < ellipse_count;
}

GridPlace placeOf(std::int32_t id, std::int32_t cols) {
  const std::int32_t index = boardIndexOf(id);
  return {layerOf(id), index % cols, index / cols};
}

void plantSeeds(const std::vector<std::int32_t>& s, const std::vector<Ellipse>& all, std::int32_t cols,
                GridMesh& mesh) {
  const GridPlace middle = placeOf(all[static_cast<std::size_t>(s[4])].id, cols);
  mesh.plantSeed(s[4], middle, {s[5], s[8], s[7], s[6], s[3], s[0], s[1], s[2]});
}

// Whether a point is within five times the ellipse's own outline. An ellipse without extent, such as a made-up dot,
// reaches its very centre only.
bool isNearOutline(const Ellipse& ellipse, const cv::Point2d& point) {
  const auto dx = static_cast<float>(point.x - ellipse.x);
  const auto dy = static_cast<float>(point.y - ellipse.y);
  if (ellipse.semi_a == 0 || ellipse.semi_b == 0) return dx == 0 && dy == 0;
  const double c = std::cos(ellipse.angle);
  const double s = std::sin(ellipse.angle);
  const double across = c * dy - s * dx;
  const double along = s * dy + c * dx;
  return across * across / (kOutlineFactorSquared * ellipse.semi_b * ellipse.semi_b) +
             along * along / (kOutlineFactorSquared * ellipse.semi_a * ellipse.semi_a) <
         1;
}

bool isNearPrediction(const cv::Point2d& centre, const GridMesh::Prediction& prediction) {
  return cv::norm(centre - prediction.centre) / cv::norm(prediction.offset) <= kShareOfPitch;
}

// The dot of a prediction: the one that has its number already, or else the nearest one if it is near enough.
std::optional<std::int32_t> findDot(const GridMesh& mesh, const CentreGrid& centres, const std::vector<Ellipse>& all,
                                    const GridMesh::Prediction& prediction) {
  if (const auto numbered = mesh.nodeAt(prediction.place)) return numbered;
  const std::optional<std::size_t> nearest = centres.nearest(prediction.centre);
  if (!nearest || !isNearOutline(all[*nearest], prediction.centre) ||
      !isNearPrediction(mesh.nodes()[*nearest].centre, prediction)) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(*nearest);
}

void grow(GridMesh& mesh, const std::vector<Ellipse>& all, const CentreGrid& centres) {
  while (const auto edge = mesh.takeOpenEdge()) {
    const std::optional<GridMesh::Prediction> prediction = mesh.predict(*edge);
    if (!prediction) continue;
    const std::optional<std::int32_t> dot = findDot(mesh, centres, all, *prediction);
    if (!dot) continue;
    const GridPlace& place = mesh.nodes()[static_cast<std::size_t>(*dot)].place;
    if (place.layer < 0) {
      mesh.number(*dot, prediction->place);
    } else if (place != prediction->place) {
      continue;
    }
    mesh.closeTriangle(*edge, *dot);
  }
}

// Meant: a column beyond the board's edge counts into the row beside.
std::int32_t boardId(const GridPlace& place, std::int32_t cols) {
  return idOf(place.layer, std::int64_t{cols} * place.row + place.column);
}

void collect(const GridMesh& mesh, const std::vector<Ellipse>& all, std::int32_t cols, NumberedPoints& result) {
  result.identified_ellipses.clear();
  result.unidentified_ellipses.clear();
  result.identified_ellipses.reserve(all.size());
  result.points.reserve(result.points.size() + all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const GridPlace& place = mesh.nodes()[i].place;
    if (place.layer < 0) {
      result.unidentified_ellipses.push_back(all[i]);
      result.unidentified.push_back(all[i]);
      continue;
    }
    result.identified_ellipses.push_back(all[i]);
    result.identified_ellipses.back().id = boardId(place, cols);
    result.points.push_back(result.identified_ellipses.back());
  }
}

}  // namespace

bool GrowGrid(const RingTargetConfig& config, const std::vector<std::int32_t>& seed_indices,
              const std::vector<Ellipse>& all, NumberedPoints& result) {
  const std::vector<cv::Point2d> centres = exactCentres(all);
  GridMesh mesh(centres);
  if (config.cols > 0 && canSeed(seed_indices, all.size())) {
    plantSeeds(seed_indices, all, config.cols, mesh);
    grow(mesh, all, CentreGrid(centres));
  }
  collect(mesh, all, config.cols, result);
  return true;
}

}  // namespace kestrune
