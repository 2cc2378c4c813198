#include "Tallowfen/src/numbering/GridMesh.h"

#include <cstddef>
#include <cstdlib>

namespace kestrune {

namespace {

constexpr std::array<std::int32_t, kDirections> kColumnSteps = {1, 1, 0, -1, -1, -1, 0, 1};
constexpr std::array<std::int32_t, kDirections> kRowSteps = {0, 1, 1, 1, 0, -1, -1, -1};

/// The same by row steps, then by column steps, each from -1 to 1; -1 where there is no step.
constexpr auto kDirectionOfStep = [] {
  std::array<std::int32_t, 9> directions{};
  directions.fill(-1);
  for (std::size_t d = 0; d < kDirections; ++d) {
    const std::int32_t step = 3 * (kRowSteps[d] + 1) + kColumnSteps[d] + 1;
    directions[static_cast<std::size_t>(step)] = static_cast<std::int32_t>(d);
  }
  return directions;
}();

/// The same index as containers take it.
std::size_t slot(std::int32_t index) { return static_cast<std::size_t>(index); }

std::int32_t opposite(std::int32_t direction) { return (direction + kDirections / 2) % kDirections; }

bool isDiagonal(std::int32_t direction) { return direction % 2 != 0; }

GridPlace neighbourPlace(const GridPlace& place, std::int32_t direction) {
  return {place.layer, place.column + kColumnSteps[slot(direction)], place.row + kRowSteps[slot(direction)]};
}

}  // namespace

GridMesh::GridMesh(const std::vector<cv::Point2d>& centres) : nodes_(centres.size()) {
  for (std::size_t i = 0; i < centres.size(); ++i) nodes_[i].centre = centres[i];
  node_at_.reserve(centres.size());
}

std::optional<std::int32_t> GridMesh::nodeAt(const GridPlace& place) const {
  const auto found = node_at_.find(place);
  if (found == node_at_.end()) return std::nullopt;
  return found->second;
}

void GridMesh::number(std::int32_t node, const GridPlace& place) {
  nodes_[slot(node)].place = place;
  node_at_.emplace(place, node);
}

void GridMesh::plantSeed(std::int32_t centre, const GridPlace& place,
                         const std::array<std::int32_t, kDirections>& ring) {
  number(centre, place);
  for (std::int32_t d = 0; d < kDirections; ++d) number(ring[slot(d)], neighbourPlace(place, d));
  link({centre, 0}, ring[0]);
  // The edges at the centre are queued too, but the next triangle closes each: only the outer edges stay open.
  for (std::int32_t d = 0; d < kDirections; ++d) closeTriangle({centre, d}, ring[slot((d + 1) % kDirections)]);
}

std::optional<GridMesh::EdgeId> GridMesh::takeOpenEdge() {
  while (!queue_.empty()) {
    const EdgeId edge = queue_.front();
    queue_.pop_front();
    if (edgeOf(edge).isOpen()) return edge;
  }
  return std::nullopt;
}

std::optional<GridMesh::Prediction> GridMesh::predict(EdgeId edge) const {
  return isDiagonal(edge.direction) ? predictAcross(edge) : predictAlongAxis(edge);
}

// Mirrors the dot on the other side of the edge's far end.
std::optional<GridMesh::Prediction> GridMesh::predictAlongAxis(EdgeId edge) const {
  std::optional<EdgeId> beyond = nextOf(twinOf(edge));
  if (beyond && isDiagonal(beyond->direction)) beyond = nextOf(*beyond);
  if (!beyond) return std::nullopt;
  const GridNode& a = nodes_[slot(edgeOf(*beyond).from)];
  const GridNode& b = nodes_[slot(edgeOf(*beyond).to)];
  const GridPlace place{a.place.layer, 2 * a.place.column - b.place.column, 2 * a.place.row - b.place.row};
  const cv::Point2d offset = a.centre - b.centre;
  return Prediction{place, a.centre + offset, offset};
}

// Completes the parallelogram of which the diagonal edge and the dot beyond it are known.
std::optional<GridMesh::Prediction> GridMesh::predictAcross(EdgeId edge) const {
  const std::optional<EdgeId> beyond = nextOf(twinOf(edge));
  if (!beyond) return std::nullopt;
  const GridNode& a = nodes_[slot(edgeOf(edge).from)];
  const GridNode& b = nodes_[slot(edgeOf(edge).to)];
  const GridNode& c = nodes_[slot(edgeOf(*beyond).to)];
  const GridPlace place{a.place.layer, a.place.column + b.place.column - c.place.column,
                        a.place.row + b.place.row - c.place.row};
  const cv::Point2d offset = b.centre - c.centre;
  return Prediction{place, a.centre + offset, offset};
}

void GridMesh::closeTriangle(EdgeId edge, std::int32_t node) {
  const std::int32_t from = edgeOf(edge).from;
  const std::int32_t to = edgeOf(edge).to;
  const std::optional<std::int32_t> from_side = directionBetween(from, node);
  const std::optional<std::int32_t> to_side = directionBetween(to, node);
  if (!from_side || !to_side) return;
  link({from, *from_side}, node);
  link({to, *to_side}, node);
  follow(edge, *from_side);
  follow({node, opposite(*from_side)}, opposite(*to_side));
  follow({to, *to_side}, opposite(edge.direction));
  queue_.push_back({from, *from_side});
  queue_.push_back({node, opposite(*to_side)});
}

const GridEdge& GridMesh::edgeOf(EdgeId id) const { return nodes_[slot(id.node)].edges[slot(id.direction)]; }

GridEdge& GridMesh::edgeOf(EdgeId id) { return nodes_[slot(id.node)].edges[slot(id.direction)]; }

GridMesh::EdgeId GridMesh::twinOf(EdgeId id) const { return {edgeOf(id).to, opposite(id.direction)}; }

std::optional<GridMesh::EdgeId> GridMesh::nextOf(EdgeId id) const {
  const std::int32_t next = edgeOf(id).next;
  if (next < 0) return std::nullopt;
  return EdgeId{id.node, next};
}

std::optional<std::int32_t> GridMesh::directionBetween(std::int32_t from, std::int32_t to) const {
  const GridPlace &a = nodes_[slot(from)].place, &b = nodes_[slot(to)].place;
  const std::int64_t columns = std::int64_t{b.column} - a.column, rows = std::int64_t{b.row} - a.row;
  if (a.layer != b.layer || std::abs(columns) > 1 || std::abs(rows) > 1 || (columns == 0 && rows == 0))
    return std::nullopt;
  return kDirectionOfStep[slot(static_cast<std::int32_t>(3 * (rows + 1) + columns + 1))];
}

// Sets an edge and its twin. What is linked already stays, with what follows it.
void GridMesh::link(EdgeId edge, std::int32_t to) {
  GridEdge& forth = edgeOf(edge);
  forth.from = edge.node;
  forth.to = to;
  GridEdge& back = edgeOf({to, opposite(edge.direction)});
  back.from = to;
  back.to = edge.node;
}

// Meant: the first triangle that takes an edge decides what follows it.
void GridMesh::follow(EdgeId edge, std::int32_t next_direction) {
  GridEdge& followed = edgeOf(edge);
  if (followed.next < 0) followed.next = next_direction;
}

}  // namespace kestrune
