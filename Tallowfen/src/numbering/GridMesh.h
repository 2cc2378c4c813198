#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <opencv2/core.hpp>
#include <optional>
#include <unordered_map>
#include <vector>

namespace kestrune {

/// Place of a dot on the board. Columns and rows may be negative: the mesh has no bounds.
struct GridPlace {
  std::int32_t layer = -1;  ///< -1 until numbered.
  std::int32_t column = 0;
  std::int32_t row = 0;

  bool operator==(const GridPlace&) const = default;
};

/// For tables of places: another number for each place of a board of up to 4096 columns.
struct GridPlaceHash {
  std::size_t operator()(const GridPlace& place) const {
    constexpr std::size_t kColumns = 1U << 12U;
    return static_cast<std::size_t>(place.row) * kColumns + static_cast<std::size_t>(place.column) +
           static_cast<std::size_t>(place.layer) * kColumns * kColumns;
  }
};

/// Directions from a dot to its neighbours, 0 to 7, clockwise in the image: (column, row) steps (1,0), (1,1), (0,1),
/// (-1,1), (-1,0), (-1,-1), (0,-1), (1,-1). Even ones run along the axes.
inline constexpr std::int32_t kDirections = 8;

/// Directed edge to one of a node's eight neighbours, kept in the slot of its direction. The three fields are -1 until
/// set.
struct GridEdge {
  std::int32_t from = -1;  ///< Node that it belongs to.
  std::int32_t to = -1;    ///< Neighbouring node. There, in the opposite direction's slot, is the twin: the edge back.
  std::int32_t next = -1;  ///< Direction of the following edge around `from`, by rising index: set once the triangle
                           ///< between them is closed.

  bool isLinked() const { return to >= 0; }
  bool isOpen() const { return isLinked() && next < 0; }
};

/// One dot. The node's index in the mesh is that of the dot in the list of ellipses.
struct GridNode {
  GridPlace place;
  cv::Point2d centre;                       ///< Pixels.
  std::array<GridEdge, kDirections> edges;  ///< By direction.
};

/// Triangulated mesh of the dots that are numbered so far, with the queue of the edges that it may still grow from.
class GridMesh {
 public:
  struct EdgeId {
    std::int32_t node;
    std::int32_t direction;
  };
  /// Where an edge expects the third dot of its triangle.
  struct Prediction {
    GridPlace place;
    cv::Point2d centre;  ///< Pixels.
    cv::Point2d offset;  ///< The known difference between two dots that the prediction repeats, pixels.
  };

  explicit GridMesh(const std::vector<cv::Point2d>& centres);

  const std::vector<GridNode>& nodes() const { return nodes_; }
  /// The node that has the number of a place.
  std::optional<std::int32_t> nodeAt(const GridPlace& place) const;
  void number(std::int32_t node, const GridPlace& place);

  /// Numbers and links the first block: `ring` is the eight neighbours of `centre` by direction. Queues the block's
  /// outer edges.
  void plantSeed(std::int32_t centre, const GridPlace& place, const std::array<std::int32_t, kDirections>& ring);

  /// The next open edge of the queue.
  std::optional<EdgeId> takeOpenEdge();
  /// Nothing when the mesh beside the edge is not complete enough to predict from.
  std::optional<Prediction> predict(EdgeId edge) const;
  /// Closes the triangle of an edge with a numbered node and queues the two new edges. Does nothing when the node is no
  /// neighbour of both ends.
  void closeTriangle(EdgeId edge, std::int32_t node);

 private:
  const GridEdge& edgeOf(EdgeId id) const;
  GridEdge& edgeOf(EdgeId id);
  EdgeId twinOf(EdgeId id) const;
  std::optional<EdgeId> nextOf(EdgeId id) const;
  std::optional<Prediction> predictAlongAxis(EdgeId edge) const;
  std::optional<Prediction> predictAcross(EdgeId edge) const;
  std::optional<std::int32_t> directionBetween(std::int32_t from, std::int32_t to) const;
  void link(EdgeId edge, std::int32_t to);
  void follow(EdgeId edge, std::int32_t next_direction);

  std::vector<GridNode> nodes_;
  std::deque<EdgeId> queue_;
  std::unordered_map<GridPlace, std::int32_t, GridPlaceHash> node_at_;
};

}  // namespace kestrune
