#include "refine/edge/EdgeZones.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace {

struct MarkCase {
  const char* name;
  refine::Outline outline;
  std::size_t edges;
  std::array<double, 3> ratio;
};

refine::EdgeModel modelOf(const MarkCase& mark) {
  refine::EdgeModel model;
  model.outline = mark.outline;
  model.edges = mark.edges;
  model.ratio = mark.ratio;
  return model;
}

/// Distance of a pixel from the nearest of a mark's edges, by points along them.
double distanceFrom(const refine::EdgeModel& model, int column, int row) {
  const refine::Outline& outline = model.outline;
  // Cholesky: points of the ellipse are L (cos, sin).
  const double a = std::sqrt(outline.xx), b = outline.xy / a, c = std::sqrt(outline.yy - b * b);
  double least = 1e9;
  for (std::size_t k = 0; k < model.edges; ++k) {
    for (int i = 0; i < 2000; ++i) {
      const double angle = i * 0.001 * CV_PI, x = std::cos(angle), y = std::sin(angle);
      least = std::min(least, std::hypot(outline.centre.x + model.ratio[k] * a * x - column,
                                         outline.centre.y + model.ratio[k] * (b * x + c * y) - row));
    }
  }
  return least;
}

class EdgeZonesRuns : public ::testing::TestWithParam<MarkCase> {};

TEST_P(EdgeZonesRuns, AreThePixelsNearTheEdgesAndEachIsInOne) {
  constexpr double kReach = 2.5, kOn = 1.1, kAbout = 0.15;
  const refine::EdgeModel model = modelOf(GetParam());
  const refine::EdgeZones zones(model, kReach, kOn);
  std::map<std::pair<int, int>, bool> seen;
  std::array<refine::EdgeRun, refine::EdgeZones::kMostRuns> runs;
  for (int row = zones.firstRow(); row <= zones.lastRow(); ++row) {
    const std::size_t count = zones.runsOf(row, runs);
    for (std::size_t k = 0; k < count; ++k) {
      for (int column = runs[k].first; column <= runs[k].last; ++column)
        EXPECT_TRUE(seen.emplace(std::pair(column, row), runs[k].on_edge).second) << column << ' ' << row;
    }
  }
  for (int row = 0; row < 60; ++row) {
    for (int column = -10; column < 60; ++column) {
      const double distance = distanceFrom(model, column, row);
      const auto found = seen.find({column, row});
      if (std::abs(distance - kReach) > kAbout) {
        EXPECT_EQ(found != seen.end(), distance < kReach) << column << ' ' << row;
      }
      if (found == seen.end() || std::abs(distance - kOn) < kAbout) continue;
      EXPECT_EQ(found->second, distance < kOn) << column << ' ' << row;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Marks, EdgeZonesRuns,
                         ::testing::Values(MarkCase{"Dot", {{30.2, 30.7}, 100.0, 0.0, 100.0}, 1, {1.0}},
                                           MarkCase{"SmallDot", {{30.4, 30.1}, 4.0, 0.0, 4.0}, 1, {1.0}},
                                           MarkCase{"LeaningEllipse", {{30.0, 30.5}, 200.0, 60.0, 120.0}, 1, {1.0}},
                                           MarkCase{"BeyondThePicture", {{2.3, 30.0}, 64.0, 0.0, 64.0}, 1, {1.0}},
                                           MarkCase{"Ring", {{30.1, 29.8}, 324.0, 0.0, 324.0}, 2, {1.0, 0.5}},
                                           MarkCase{"NarrowRing", {{30.1, 29.8}, 324.0, 30.0, 300.0}, 2, {1.0, 0.82}},
                                           MarkCase{
                                               "SolidRing", {{30.6, 30.3}, 400.0, 0.0, 380.0}, 3, {1.0, 0.7, 0.4}}),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
