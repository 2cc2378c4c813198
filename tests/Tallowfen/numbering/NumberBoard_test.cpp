#include "Tallowfen/src/numbering/NumberBoard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeEllipses.h"
#include "tests/support/ConsoleCapture.h"

namespace {

using handmade::ellipse;
using handmade::List;
using kestrune::DetectionStep;
using kestrune::MarkerSizes;
using kestrune::NumberedPoints;
using kestrune::RingTargetConfig;
using kestrune::morvenkit::kBigDot;
using kestrune::morvenkit::kDot;
using kestrune::morvenkit::kRejected;
using kestrune::morvenkit::kRing;
using kestrune::morvenkit::kSolidRing;

constexpr double kPitch = 20.0;
constexpr int kSide = 11;

RingTargetConfig boardOf(std::int32_t type) {
  RingTargetConfig config;
  config.rows = kSide;
  config.cols = kSide;
  config.board_type = type;
  config.inner_width = 5;
  config.inner_height = 5;
  config.outter_width = 9;
  config.outter_height = 9;
  config.step = 20.0F;
  config.step_y = 20.0F;
  return config;
}

/// An 11 x 11 board seen straight on, its first dot at (50, 40), dots of semi-axis 5.
List boardEllipses() {
  List all;
  for (int row = 0; row < kSide; ++row) {
    for (int column = 0; column < kSide; ++column) {
      all.push_back(ellipse(50 + column * kPitch, 40 + row * kPitch, 5));
      all.back().semi_b = 4.9;
    }
  }
  return all;
}

void mark(List& all, int column, int row, std::uint8_t point_class, double semi_a) {
  kestrune::Ellipse& marker = all[static_cast<std::size_t>(row * kSide + column)];
  marker.point_class = point_class;
  marker.semi_a = semi_a;
}

/// Small rings on the 5 x 5 rectangle about the middle (5, 5), the solid ring one row below the upper left ring.
List smallRingBoard() {
  List all = boardEllipses();
  for (const auto& [column, row] : {std::pair(3, 3), std::pair(7, 3), std::pair(7, 7), std::pair(3, 7)}) {
    mark(all, column, row, kRing, 8);
  }
  mark(all, 3, 4, kSolidRing, 8);
  return all;
}

/// Big dots on the same rectangle, the upper left one a column in.
List bigDotBoard() {
  List all = boardEllipses();
  for (const auto& [column, row] : {std::pair(3, 7), std::pair(7, 7), std::pair(7, 3), std::pair(4, 3)}) {
    mark(all, column, row, kBigDot, 8);
  }
  return all;
}

struct Numbered {
  bool passed = false;
  NumberedPoints result;
  MarkerSizes sizes;
  kestrune::DetectionTrace trace;
  std::string err;
};

Numbered number(const RingTargetConfig& config, const List& all, const cv::Mat& mask = {}) {
  Numbered numbered;
  const ConsoleCapture console;
  const kestrune::MarkerContext context{kestrune::nearbyDotsOf(config, 640), {}};
  numbered.passed = kestrune::numberBoard(config, context, all, mask, numbered.sizes, numbered.result, numbered.trace);
  numbered.err = console.err();
  return numbered;
}

/// Every point's place on the board tells its id.
void expectTrueIds(const Numbered& numbered, std::size_t count) {
  EXPECT_EQ(numbered.result.points.size(), count);
  for (const auto& point : numbered.result.points) {
    EXPECT_EQ(point.id, cvRound((point.y - 40) / kPitch) * kSide + cvRound((point.x - 50) / kPitch));
  }
}

TEST(NumberBoard, SmallRingBoardIsNumberedWhole) {
  const Numbered numbered = number(boardOf(2), smallRingBoard());
  EXPECT_TRUE(numbered.passed);
  EXPECT_EQ(numbered.err, "");
  EXPECT_TRUE(numbered.sizes.rings_small);
  expectTrueIds(numbered, kSide * kSide);
}

TEST(NumberBoard, ARingBoardNumbersAlsoWhatHadNoClass) {
  List all = smallRingBoard();
  all[0].point_class = kRejected;
  all[1].point_class = 3;
  expectTrueIds(number(boardOf(1), all), kSide * kSide);
}

TEST(NumberBoard, ARingBoardNumbersAlsoWhatTheMaskHid) {
  cv::Mat mask(300, 300, CV_8UC1, cv::Scalar(255));
  mask(cv::Rect(0, 0, 60, 60)) = 0;
  expectTrueIds(number(boardOf(2), smallRingBoard(), mask), kSide * kSide);
}

TEST(NumberBoard, BigDotBoardIsNumberedWhole) {
  const Numbered numbered = number(boardOf(3), bigDotBoard());
  EXPECT_TRUE(numbered.passed);
  EXPECT_TRUE(numbered.sizes.big_dot_board);
  expectTrueIds(numbered, kSide * kSide);
}

TEST(NumberBoard, ABigDotBoardLeavesOutWhatHadNoClassAndWhatTheMaskHid) {
  List all = bigDotBoard();
  all[1].point_class = kRejected;
  cv::Mat mask(300, 300, CV_8UC1, cv::Scalar(255));
  mask(cv::Rect(0, 0, 60, 60)) = 0;
  expectTrueIds(number(boardOf(3), all, mask), kSide * kSide - 2);
}

TEST(NumberBoard, BigDotsStandBehindTheDotsInTheResults) {
  const Numbered numbered = number(boardOf(3), bigDotBoard());
  ASSERT_EQ(numbered.result.identified_ellipses.size(), static_cast<std::size_t>(kSide * kSide));
  for (std::size_t i = kSide * kSide - 4; i < kSide * kSide; ++i) {
    EXPECT_EQ(numbered.result.identified_ellipses[i].semi_a, 8.0);
  }
}

TEST(NumberBoard, NumberingBySearchFindsTheSameIds) {
  RingTargetConfig config = boardOf(3);
  config.id_method = 1;
  const Numbered numbered = number(config, bigDotBoard());
  EXPECT_TRUE(numbered.passed);
  // The dot of id 0 equals the unset land marks.
  expectTrueIds(numbered, kSide * kSide - 1);
}

TEST(NumberBoard, AnyOtherNumberingOfABigDotBoardNumbersNothing) {
  RingTargetConfig config = boardOf(3);
  config.id_method = 2;
  const Numbered numbered = number(config, bigDotBoard());
  EXPECT_TRUE(numbered.passed);
  EXPECT_EQ(numbered.err, "");
  EXPECT_TRUE(numbered.result.points.empty());
}

TEST(NumberBoard, ARingBoardWithoutRingsTellsBothCounts) {
  // What the middle resolutions give on a ring board: dots and big dots only.
  const Numbered numbered = number(boardOf(2), bigDotBoard());
  EXPECT_FALSE(numbered.passed);
  EXPECT_EQ(numbered.err, "Invalid rings or solidring number at the same size : 0 and 0(should be 4 or 1) \n");
  EXPECT_TRUE(numbered.result.points.empty());
}

TEST(NumberBoard, TheCountsAreThoseBeforeTheRecognition) {
  List all = smallRingBoard();
  mark(all, 7, 7, kDot, 5);
  const Numbered numbered = number(boardOf(2), all);
  EXPECT_FALSE(numbered.passed);
  EXPECT_EQ(numbered.err,
            "Not enough rings and solidrings:  \n"
            "Invalid rings or solidring number at the same size : 3 and 1(should be 4 or 1) \n");
}

// One dot beside the solid ring is missing, another stands 0.4 pitches off: near enough for its cell, too far for the
// growth. The incomplete block numbers it, another ring's block makes the seeds, and it stays without a place.
TEST(NumberBoard, DotOfAnIncompleteBlockKeepsItsIdThoughItHasNoPlace) {
  List all = smallRingBoard();
  const auto at = [&all](int column, int row) { return all.begin() + row * kSide + column; };
  at(2, 5)->x += 0.4 * kPitch;
  all.erase(at(2, 3));
  const Numbered numbered = number(boardOf(2), all);
  EXPECT_TRUE(numbered.passed);
  expectTrueIds(numbered, kSide * kSide - 2);
  ASSERT_EQ(numbered.result.unidentified.size(), 1U);
  EXPECT_EQ(numbered.result.unidentified[0].id, 5 * kSide + 2);
  EXPECT_EQ(numbered.result.unidentified_ellipses.at(0).id, 5 * kSide + 2);
}

TEST(NumberBoard, ABigDotBoardWithoutBigDotsTellsRingsAndSolids) {
  const Numbered numbered = number(boardOf(3), smallRingBoard());
  EXPECT_FALSE(numbered.passed);
  EXPECT_EQ(numbered.err, "Invalid big circles at the same size : 4 and 1(should be 3) \n");
}

TEST(NumberBoardTrace, OfAWholeBoardCountsClassesMarkersAndPoints) {
  const kestrune::DetectionTrace trace = number(boardOf(2), smallRingBoard()).trace;
  EXPECT_EQ(trace.step, DetectionStep::kDone);
  EXPECT_EQ(trace.classes.dots, static_cast<std::size_t>(kSide * kSide - 5));
  EXPECT_EQ(trace.classes.rings, 4U);
  EXPECT_EQ(trace.classes.solid_rings, 1U);
  EXPECT_EQ(trace.classes.big_dots + trace.classes.unknown, 0U);
  EXPECT_EQ(trace.markers.size(), 5U);
  EXPECT_EQ(trace.markers.at(0), cv::Point2f(50 + 3 * 20, 40 + 4 * 20)) << "the solid ring comes first";
  EXPECT_EQ(trace.fullest_block, 9U);
  EXPECT_EQ(trace.numbered, static_cast<std::size_t>(kSide * kSide));
}

TEST(NumberBoardTrace, OfMissingRingsCountsThemBySize) {
  List all = smallRingBoard();
  mark(all, 7, 7, kDot, 5);
  mark(all, 3, 7, kRing, 15);  // Three times its dots.
  const kestrune::DetectionTrace trace = number(boardOf(2), all).trace;
  EXPECT_EQ(trace.step, DetectionStep::kMarkers);
  EXPECT_EQ(trace.classes.rings, 3U);
  EXPECT_EQ(trace.rings.small_rings, 2U);
  EXPECT_EQ(trace.rings.big_rings, 1U);
  EXPECT_EQ(trace.rings.small_solid_rings, 1U);
  EXPECT_EQ(trace.rings.big_solid_rings, 0U);
  EXPECT_TRUE(trace.markers.empty());
}

TEST(NumberBoardTrace, OfMarkersOutOfPlaceEndsWithTheirArrangement) {
  List big_dots = bigDotBoard();
  mark(big_dots, 4, 3, kDot, 5);
  mark(big_dots, 3, 3, kBigDot, 8);
  EXPECT_EQ(number(boardOf(3), big_dots).trace.step, DetectionStep::kArrangement);
  List rings = smallRingBoard();
  mark(rings, 3, 4, kDot, 5);
  mark(rings, 5, 4, kSolidRing, 8);  // Not on the left side.
  EXPECT_EQ(number(boardOf(2), rings).trace.step, DetectionStep::kArrangement);
}

// A dot beside each marker is missing: each block holds eight.
TEST(NumberBoardTrace, WithoutAWholeBlockEndsWithTheSeed) {
  List all = bigDotBoard();
  for (const auto& [column, row] : {std::pair(8, 8), std::pair(8, 2), std::pair(4, 2), std::pair(3, 8)}) {
    all[static_cast<std::size_t>(row * kSide + column)].x = -1000;  // Far off the board.
  }
  const kestrune::DetectionTrace trace = number(boardOf(3), all).trace;
  EXPECT_EQ(trace.step, DetectionStep::kSeed);
  EXPECT_EQ(trace.fullest_block, 8U);
  EXPECT_EQ(trace.markers.size(), 4U);
  EXPECT_EQ(trace.numbered, 0U);
}

TEST(NumberBoardTrace, OfAnyOtherNumberingEndsWithTheSeed) {
  RingTargetConfig config = boardOf(3);
  config.id_method = 2;
  EXPECT_EQ(number(config, bigDotBoard()).trace.step, DetectionStep::kSeed);
}

TEST(NumberBoardTrace, OfASearchTellsTheMatches) {
  RingTargetConfig config = boardOf(3);
  config.id_method = 1;
  const kestrune::DetectionTrace found = number(config, bigDotBoard()).trace;
  EXPECT_EQ(found.step, DetectionStep::kDone);
  EXPECT_EQ(found.matches, static_cast<std::size_t>(kSide * kSide - 1));
  // Twice as many dots beside the board as on it.
  List all = bigDotBoard();
  for (int i = 0; i < 2 * kSide * kSide; ++i) all.push_back(ellipse(-500 - 20.0 * i, 40, 5));
  const kestrune::DetectionTrace lost = number(config, all).trace;
  EXPECT_EQ(lost.step, DetectionStep::kSearch);
  EXPECT_EQ(lost.matches, static_cast<std::size_t>(kSide * kSide - 1));
  EXPECT_EQ(lost.numbered, 0U);
}

TEST(NumberBoard, AFailedIndexIsTold) {
  // Four big dots on a square: no corner is told from another.
  List all = bigDotBoard();
  mark(all, 4, 3, kDot, 5);
  mark(all, 3, 3, kBigDot, 8);
  for (const std::uint16_t method : {std::uint16_t{0}, std::uint16_t{1}}) {
    RingTargetConfig config = boardOf(3);
    config.id_method = method;
    const Numbered numbered = number(config, all);
    EXPECT_FALSE(numbered.passed);
    EXPECT_EQ(numbered.err, "Failed in GetCircleIndex()\n");
    EXPECT_TRUE(numbered.result.points.empty());
  }
}

}  // namespace
