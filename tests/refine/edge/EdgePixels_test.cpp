#include "refine/edge/EdgePixels.h"

#include <gtest/gtest.h>

#include "refine/EllipsePicture.h"

namespace {

using refine::PixelChoice;

refine::EdgeModel circle(const cv::Point2d& centre, double radius) {
  refine::EdgeModel model;
  model.outline = {centre, radius * radius, 0.0, radius * radius};
  model.blur = 0.8;
  return model;
}

refine::GreyPicture blank() { return refine::greyPictureOf(cv::Mat(40, 40, CV_8U, cv::Scalar(100))); }

TEST(EdgePixelsCollected, LieAroundTheOutline) {
  refine::EdgeTable table;
  const auto counts = refine::collectEdgePixels(blank(), circle({20.0, 20.0}, 10.0), {}, PixelChoice::kFlatToo, table);
  ASSERT_GT(table.size(), 200);
  for (Eigen::Index i = 0; i < table.size(); ++i) {
    const double radius = std::hypot(table.pixel(i).x - 20.0, table.pixel(i).y - 20.0);
    EXPECT_NEAR(radius, 10.0, refine::kEdgeReach * 0.8 + 0.7);
  }
  // A band of 2.4 pixels along 2 pi 10.
  EXPECT_NEAR(counts.on_edge, 151.0, 15.0);
  EXPECT_EQ(counts.clipped, 0);
  EXPECT_EQ(counts.neighboured, 0);
}

TEST(EdgePixelsCollected, LeaveOutWhatANeighbourBlursInto) {
  refine::EdgeTable all, clear;
  refine::collectEdgePixels(blank(), circle({20.0, 20.0}, 8.0), {}, PixelChoice::kFlatToo, all);
  const refine::Neighbour neighbour{{{32.0, 20.0}, 9.0, 0.0, 9.0}, 0.8};
  const auto counts =
      refine::collectEdgePixels(blank(), circle({20.0, 20.0}, 8.0), {neighbour}, PixelChoice::kFlatToo, clear);
  EXPECT_LT(clear.size(), all.size());
  EXPECT_GT(counts.neighboured, 0);
  for (Eigen::Index i = 0; i < clear.size(); ++i)
    EXPECT_GE(std::hypot(clear.pixel(i).x - 32.0, clear.pixel(i).y - 20.0), 3.0 + 3.0 * 0.8 - 1e-9);
}

TEST(EdgePixelsThatTell, AreAllOnASmallEdgeAndAQuarterOfTheFlatOnes) {
  refine::EdgeTable all, some;
  const refine::EdgeModel model = circle({20.0, 20.0}, 10.0);
  const auto counts = refine::collectEdgePixels(blank(), model, {}, PixelChoice::kFlatToo, all);
  const auto same = refine::collectEdgePixels(blank(), model, {}, PixelChoice::kWhatTells, some);
  EXPECT_EQ(same.on_edge, counts.on_edge);
  const auto flat = [&](const refine::EdgeTable& table) { return static_cast<double>(table.size() - counts.on_edge); };
  EXPECT_NEAR(flat(some) / flat(all), 0.25, 0.04);
}

TEST(EdgePixelsCollected, AreOfEveryFourthRowOfALargeMark) {
  refine::EdgeTable some;
  const auto grey = refine::greyPictureOf(cv::Mat(140, 140, CV_8U, cv::Scalar(100)));
  const auto counts = refine::collectEdgePixels(grey, circle({70.0, 71.3}, 50.0), {}, PixelChoice::kWhatTells, some);
  int on_edge = 0;
  for (Eigen::Index i = 0; i < some.size(); ++i) {
    const double off = std::hypot(some.pixel(i).x - 70.0, some.pixel(i).y - 71.3) - 50.0;
    on_edge += std::abs(off) < refine::kOnEdge * 0.8;
  }
  EXPECT_EQ(counts.on_edge, 4 * on_edge);
  // A band of 2.4 pixels along 2 pi 50; how many rows touch it at its top and bottom is chance.
  EXPECT_NEAR(counts.on_edge, 754.0, 80.0);
  for (Eigen::Index i = 0; i < some.size(); ++i) EXPECT_EQ(some.pixel(i).y % 4, 0);
}

TEST(EdgePixelsClipped, AreThoseBeyondThePictureAndAtTheRangesEnd) {
  refine::EdgeTable table;
  EXPECT_GT(refine::collectEdgePixels(blank(), circle({4.0, 20.0}, 6.0), {}, PixelChoice::kFlatToo, table).clipped, 5);
  const auto white = refine::greyPictureOf(cv::Mat(40, 40, CV_8U, cv::Scalar(255)));
  const auto counts = refine::collectEdgePixels(white, circle({20.0, 20.0}, 6.0), {}, PixelChoice::kFlatToo, table);
  EXPECT_EQ(counts.clipped, counts.on_edge);
}

TEST(EdgePixelsCollected, AreAroundTheHoleToo) {
  refine::EdgeModel ring = circle({20.0, 20.0}, 12.0);
  ring.edges = 2;
  ring.ratio = {1.0, 0.5};
  refine::EdgeTable table;
  refine::collectEdgePixels(blank(), ring, {}, PixelChoice::kFlatToo, table);
  bool on_hole = false;
  for (Eigen::Index i = 0; i < table.size(); ++i)
    on_hole = on_hole || std::abs(std::hypot(table.pixel(i).x - 20.0, table.pixel(i).y - 20.0) - 6.0) < 0.5;
  EXPECT_TRUE(on_hole);
}

}  // namespace
