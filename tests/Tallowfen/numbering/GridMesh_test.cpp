#include "Tallowfen/src/numbering/GridMesh.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace {

using kestrune::GridMesh;
using kestrune::GridPlace;

// Places of the first block in the order of the nodes: the middle, then its neighbours by direction.
constexpr std::array<std::pair<int, int>, 8> kSteps = {
    {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}}};

// Middle at column 5 and row 6, pitch 10, and behind the block two nodes that are not numbered yet.
GridMesh plantedMesh() {
  std::vector<cv::Point2d> centres = {{50, 60}};
  for (const auto& [column, row] : kSteps) centres.emplace_back(50 + 10 * column, 60 + 10 * row);
  centres.emplace_back(70, 60);
  centres.emplace_back(60, 80);
  GridMesh mesh(centres);
  mesh.plantSeed(0, {0, 5, 6}, {1, 2, 3, 4, 5, 6, 7, 8});
  return mesh;
}

TEST(GridMesh, SeedGivesEveryNeighbourItsPlace) {
  const GridMesh mesh = plantedMesh();
  EXPECT_EQ(mesh.nodeAt({0, 5, 6}), 0);
  for (std::size_t d = 0; d < kSteps.size(); ++d) {
    const GridPlace place{0, 5 + kSteps[d].first, 6 + kSteps[d].second};
    EXPECT_EQ(mesh.nodeAt(place), static_cast<int>(d) + 1);
    EXPECT_EQ(mesh.nodes()[d + 1].place, place);
  }
  EXPECT_FALSE(mesh.nodeAt({0, 7, 6}));
  EXPECT_FALSE(mesh.nodeAt({1, 5, 6}));
  EXPECT_EQ(mesh.nodes()[9].place.layer, -1);
}

// Each neighbour's edge to the one before it, the wrapping one last.
TEST(GridMesh, RimIsQueuedByRisingDirection) {
  GridMesh mesh = plantedMesh();
  for (const auto& [from, to] : {std::pair(2, 1), {3, 2}, {4, 3}, {5, 4}, {6, 5}, {7, 6}, {8, 7}, {1, 8}}) {
    const auto edge = mesh.takeOpenEdge();
    ASSERT_TRUE(edge);
    EXPECT_EQ(edge->node, from);
    EXPECT_EQ(mesh.nodes()[static_cast<std::size_t>(from)].edges[static_cast<std::size_t>(edge->direction)].to, to);
  }
  EXPECT_FALSE(mesh.takeOpenEdge());
}

TEST(GridMesh, NextIsTheFollowingEdgeByRisingDirection) {
  const GridMesh mesh = plantedMesh();
  for (std::size_t d = 0; d < 8; ++d) {
    EXPECT_EQ(mesh.nodes()[0].edges[d].next, static_cast<int>((d + 1) % 8));
  }
  // Around the right neighbour: down, then the middle to the left, then up, which is open.
  const auto& edges = mesh.nodes()[1].edges;
  EXPECT_EQ(edges[2].next, 4);
  EXPECT_EQ(edges[4].next, 6);
  EXPECT_TRUE(edges[6].isOpen());
  EXPECT_FALSE(edges[0].isLinked());
}

TEST(GridMesh, TheFirstTriangleDecidesWhatFollowsAnEdge) {
  GridMesh mesh = plantedMesh();
  mesh.closeTriangle({0, 7}, 7);
  EXPECT_EQ(mesh.nodes()[0].edges[7].next, 0);
}

// From (6,7) up to (6,6): beyond lies (5,6), mirrored at (6,6) it gives (7,6).
TEST(GridMesh, AxialEdgeMirrorsTheDotBeyond) {
  GridMesh mesh = plantedMesh();
  const auto prediction = mesh.predict(*mesh.takeOpenEdge());
  ASSERT_TRUE(prediction);
  EXPECT_EQ(prediction->place, (GridPlace{0, 7, 6}));
  EXPECT_EQ(prediction->centre, cv::Point2d(70, 60));
  EXPECT_EQ(prediction->offset, cv::Point2d(10, 0));
}

// From (5,7) to (6,7): the next edge at the far end is the diagonal to the middle, so the one after it counts, up to
// (6,6).
TEST(GridMesh, AxialEdgeStepsOverADiagonal) {
  GridMesh mesh = plantedMesh();
  mesh.takeOpenEdge();
  const auto prediction = mesh.predict(*mesh.takeOpenEdge());
  ASSERT_TRUE(prediction);
  EXPECT_EQ(prediction->place, (GridPlace{0, 6, 8}));
  EXPECT_EQ(prediction->centre, cv::Point2d(60, 80));
  EXPECT_EQ(prediction->offset, cv::Point2d(0, 10));
}

TEST(GridMesh, ClosedTriangleQueuesTheEdgeOfItsFromNodeFirst) {
  GridMesh mesh = plantedMesh();
  const GridMesh::EdgeId edge = *mesh.takeOpenEdge();
  mesh.number(9, {0, 7, 6});
  mesh.closeTriangle(edge, 9);
  EXPECT_EQ(mesh.nodes()[2].edges[6].next, 7);
  for (int i = 0; i < 7; ++i) mesh.takeOpenEdge();

  const auto diagonal = mesh.takeOpenEdge();
  ASSERT_TRUE(diagonal);
  EXPECT_EQ(std::pair(diagonal->node, diagonal->direction), std::pair(2, 7));
  const auto axial = mesh.takeOpenEdge();
  ASSERT_TRUE(axial);
  EXPECT_EQ(std::pair(axial->node, axial->direction), std::pair(9, 4));
  EXPECT_FALSE(mesh.takeOpenEdge());

  // A = (6,7) at (60,70), B = (7,6) at (70,60), C = (6,6) at (60,60): A + B - C.
  const auto prediction = mesh.predict(*diagonal);
  ASSERT_TRUE(prediction);
  EXPECT_EQ(prediction->place, (GridPlace{0, 7, 7}));
  EXPECT_EQ(prediction->centre, cv::Point2d(70, 70));
  EXPECT_EQ(prediction->offset, cv::Point2d(10, 0));
}

TEST(GridMesh, NodeThatIsNoNeighbourClosesNothing) {
  GridMesh mesh = plantedMesh();
  const GridMesh::EdgeId edge = *mesh.takeOpenEdge();
  mesh.closeTriangle(edge, 5);
  EXPECT_TRUE(mesh.nodes()[2].edges[6].isOpen());
  for (int i = 0; i < 7; ++i) EXPECT_TRUE(mesh.takeOpenEdge());
  EXPECT_FALSE(mesh.takeOpenEdge());
}

// The edge goes up from (6, 7).
TEST(GridMesh, ANodeFartherAwayOnAnotherLayerOrAtTheSamePlaceClosesNothing) {
  for (const GridPlace& place : {GridPlace{0, 6, 9}, GridPlace{0, 6, 5}, GridPlace{0, 8, 7}, GridPlace{0, 4, 7},
                                 GridPlace{0, 8, 6}, GridPlace{1, 7, 7}, GridPlace{0, 6, 7}}) {
    GridMesh mesh = plantedMesh();
    const GridMesh::EdgeId edge = *mesh.takeOpenEdge();
    ASSERT_EQ(mesh.nodes()[static_cast<std::size_t>(edge.node)].place, (GridPlace{0, 6, 7}));
    mesh.number(9, place);
    mesh.closeTriangle(edge, 9);
    EXPECT_TRUE(mesh.nodes()[2].edges[6].isOpen()) << place.layer << ' ' << place.column << ' ' << place.row;
    for (int i = 0; i < 7; ++i) EXPECT_TRUE(mesh.takeOpenEdge());
    EXPECT_FALSE(mesh.takeOpenEdge());
  }
}

TEST(GridMesh, IncompleteMeshPredictsNothing) {
  GridMesh mesh = plantedMesh();
  // The twins of the rim's edges are closed, the rim's edges themselves are not: seen from behind there is nothing to
  // mirror.
  EXPECT_FALSE(mesh.predict({1, 2}));
}

}  // namespace
