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

struct ClearCase {
  const char* name;
  int depth;
  double radius;  ///< All rows, every third, every fourth.
  std::size_t edges;
  PixelChoice choice;
};

class EdgePixelsOfAClearMark : public ::testing::TestWithParam<ClearCase> {};

/// A mark far from the border is taken in another way than one near it, which a cut-out around it makes of it: a whole
/// number of steps of rows and columns away, so that the same ones are taken.
TEST_P(EdgePixelsOfAClearMark, AreThoseOfACutOutAroundIt) {
  const ClearCase& param = GetParam();
  const cv::Point corner(48, 36);
  cv::Mat picture(160, 170, param.depth);
  cv::RNG random(3);
  random.fill(picture, cv::RNG::UNIFORM, 1, 254);
  const auto expect_same = [&] {
    refine::EdgeModel model = circle({80.3, 71.6}, param.radius);
    model.edges = param.edges;
    model.ratio = {1.0, 0.6, 0.3};
    refine::EdgeModel cut = model;
    cut.outline.centre -= cv::Point2d(corner);
    refine::EdgeTable whole, part;
    const auto counts = refine::collectEdgePixels(refine::greyPictureOf(picture), model, {}, param.choice, whole);
    const cv::Mat cut_out = picture(cv::Rect(corner, cv::Size(66, 72)));
    const auto expected = refine::collectEdgePixels(refine::greyPictureOf(cut_out), cut, {}, param.choice, part);
    EXPECT_EQ(counts.on_edge, expected.on_edge);
    EXPECT_EQ(counts.clipped, expected.clipped);
    EXPECT_EQ(counts.neighboured, 0);
    ASSERT_EQ(whole.size(), part.size());
    ASSERT_GT(whole.size(), 50);
    for (Eigen::Index i = 0; i < whole.size(); ++i) {
      EXPECT_EQ(whole.pixel(i), part.pixel(i) + corner) << i;
      EXPECT_EQ(whole.grey()(i), part.grey()(i)) << i;
    }
  };
  expect_same();
  const int row = 72, column = static_cast<int>(80.3 + param.radius);  // Right on the edge.
  for (const int end : {0, param.depth == CV_8U ? 255 : 65535}) {
    cv::Mat(1, 1, CV_32S, cv::Scalar(end)).convertTo(picture(cv::Rect(column, row, 1, 1)), param.depth);
    expect_same();
  }
}

INSTANTIATE_TEST_SUITE_P(Marks, EdgePixelsOfAClearMark,
                         ::testing::Values(ClearCase{"all_rows", CV_8U, 9.0, 1, PixelChoice::kWhatTells},
                                           ClearCase{"all_flat", CV_8U, 9.0, 1, PixelChoice::kFlatToo},
                                           ClearCase{"third_rows", CV_8U, 12.4, 1, PixelChoice::kWhatTells},
                                           ClearCase{"fourth_rows", CV_8U, 26.0, 1, PixelChoice::kWhatTells},
                                           ClearCase{"small", CV_8U, 2.5, 1, PixelChoice::kWhatTells},
                                           ClearCase{"ring", CV_8U, 10.0, 2, PixelChoice::kWhatTells},
                                           ClearCase{"ring_with_core", CV_8U, 11.0, 3, PixelChoice::kFlatToo},
                                           ClearCase{"sixteen_bits", CV_16U, 9.0, 1, PixelChoice::kWhatTells}),
                         [](const auto& test) { return std::string(test.param.name); });

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
