#include "Tallowfen/src/board/BoardModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/core.hpp>

#include "tests/support/ConsoleCapture.h"

namespace {

using kestrune::centreIndexOf;
using kestrune::dotCountOf;
using kestrune::makeBoardModel;
using kestrune::pointClassOfIndex;
using kestrune::RingTargetConfig;
using kestrune::morvenkit::BoardPoint;

RingTargetConfig board(std::uint16_t rows, std::uint16_t cols, float step = 1.0F, float step_y = 1.0F) {
  RingTargetConfig config;
  config.rows = rows;
  config.cols = cols;
  config.step = step;
  config.step_y = step_y;
  return config;
}

struct Made {
  std::vector<BoardPoint> model;
  std::string out;
};

Made make(const RingTargetConfig& config, const std::vector<cv::Point3f>& truth = {}) {
  const ConsoleCapture console;
  Made made{makeBoardModel(config, truth), ""};
  made.out = console.out();
  return made;
}

TEST(BoardModelDotCount, IsRowsTimesColumns) {
  EXPECT_EQ(dotCountOf(board(71, 73)), 5183U);
  EXPECT_EQ(dotCountOf(board(0, 65535)), 0U);
  EXPECT_EQ(dotCountOf(board(65535, 256)), 16776960U) << "a long board is a board";
}

TEST(BoardModelDotCount, TheLimitItselfIsAllowed) { EXPECT_EQ(dotCountOf(board(4096, 4096)), 16777216U); }

struct TooLarge {
  const char* name;
  std::uint16_t rows, cols;
  const char* count;
};

class BoardModelDotCountBeyond : public testing::TestWithParam<TooLarge> {};

TEST_P(BoardModelDotCountBeyond, IsRefusedWithTheCountAndTheLimit) {
  try {
    dotCountOf(board(GetParam().rows, GetParam().cols));
    FAIL() << "no exception";
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, cv::Error::StsOutOfRange);
    EXPECT_THAT(error.err, testing::HasSubstr(GetParam().count));
    EXPECT_THAT(error.err, testing::HasSubstr("16777216"));
  }
}

// The largest board does not fit into 32 bits with a sign.
INSTANTIATE_TEST_SUITE_P(Sizes, BoardModelDotCountBeyond,
                         testing::Values(TooLarge{"OneDotMore", 65281, 257, "16777217"},
                                         TooLarge{"OneRowMore", 4097, 4096, "16781312"},
                                         TooLarge{"TwentyThousand", 20000, 20000, "400000000"},
                                         TooLarge{"Largest", 65535, 65535, "4294836225"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(BoardModelCentreIndex, OfTheDefaultBoardIs2591) { EXPECT_EQ(centreIndexOf(board(71, 73, 1, 1)), 2591); }

TEST(BoardModelCentreIndex, OfEvenCountsIsTheFirstOfTheMiddleOnes) {
  EXPECT_EQ(centreIndexOf(board(4, 6, 1, 1)), 1 * 6 + 2);
}

TEST(BoardModelCentreIndex, OfNoBoardAndOfTheLargest) {
  EXPECT_EQ(centreIndexOf(board(0, 0, 1, 1)), 0);
  EXPECT_EQ(centreIndexOf(board(65535, 65535, 1, 1)), 32767 * 65536);
}

TEST(BoardModelPointClass, MarkersOfTheTable) {
  for (const int index : {2137, 2364}) EXPECT_EQ(pointClassOfIndex(index), 4) << index;
  for (const int index : {1731, 3483, 3451, 1699, 2145, 2161, 3021, 3037})
    EXPECT_EQ(pointClassOfIndex(index), 1) << index;
}

TEST(BoardModelPointClass, AnythingElseIsADot) {
  int dots = 0;
  for (int index = 0; index < 71 * 73; ++index) dots += pointClassOfIndex(index) == 0 ? 1 : 0;
  EXPECT_EQ(dots, 71 * 73 - 10);
}

TEST(BoardModel, RegularGridRowByRow) {
  const Made made = make(board(2, 3, 17.5F, 20.25F));
  ASSERT_EQ(made.model.size(), 6U);
  for (int i = 0; i < 6; ++i) {
    const BoardPoint& point = made.model[static_cast<std::size_t>(i)];
    EXPECT_EQ(point.id, i);
    EXPECT_EQ(point.flag, 0);
    EXPECT_EQ(point.position, cv::Point3d(i % 3 * 17.5, i / 3 * 20.25, 0.0));
  }
  EXPECT_EQ(made.out, "Calibration board Normal mode\nchecke_pointstart:0 0 0\nchecke_pointend:35 20.25 0\n");
}

TEST(BoardModel, AZeroRowPitchIsTheColumnPitch) {
  EXPECT_EQ(make(board(3, 2, 12.5F, 0.0F)).model.back().position, cv::Point3d(12.5, 25.0, 0.0));
}

TEST(BoardModel, ProductsAreSinglePrecision) {
  const std::vector<BoardPoint> model = make(board(8, 8, 17.3F, 17.1F)).model;
  EXPECT_EQ(model.back().position.x, static_cast<double>(7.0F * 17.3F));
  EXPECT_NE(model.back().position.x, 7.0 * static_cast<double>(17.3F));
  EXPECT_EQ(model.back().position.y, static_cast<double>(7.0F * 17.1F));
}

TEST(BoardModel, RadiusIsASinglePrecisionProduct) {
  RingTargetConfig config = board(1, 1, 17.3F, 0);
  config.ratio_solid = 0.3F;
  EXPECT_EQ(make(config).model.front().radius, static_cast<double>(0.3F * 17.3F));
}

TEST(BoardModel, ClassesFollowTheTableByIndex) {
  const std::vector<BoardPoint> model = make(board(71, 73, 17.5F, 17.5F)).model;
  EXPECT_EQ(model[2137].point_class, 4);
  EXPECT_EQ(model[1699].point_class, 1);
  EXPECT_EQ(model[0].point_class, 0);
}

TEST(BoardModel, GroundTruthOfEveryPointIsTaken) {
  std::vector<cv::Point3f> truth;
  for (int i = 0; i < 6; ++i) truth.emplace_back(0.1F * static_cast<float>(i), -1.5F, 0.25F);
  const Made made = make(board(2, 3, 17.5F, 0), truth);
  ASSERT_EQ(made.model.size(), 6U);
  EXPECT_EQ(made.model[3].position, cv::Point3d(static_cast<double>(0.1F * 3.0F), -1.5, 0.25));
  EXPECT_EQ(made.model[3].id, 3);
  EXPECT_EQ(made.out.substr(0, made.out.find('\n')), "Calibration board GT mode");
  EXPECT_EQ(made.out.substr(made.out.find('\n') + 1), "checke_pointstart:0 -1.5 0.25\nchecke_pointend:0.5 -1.5 0.25\n");
}

TEST(BoardModel, GroundTruthOfAnotherSizeFallsBackInSilence) {
  for (const std::size_t size : {5U, 7U}) {
    const Made made = make(board(2, 3, 10.0F, 0), std::vector<cv::Point3f>(size, {1, 2, 3}));
    EXPECT_EQ(made.model.back().position, cv::Point3d(20, 10, 0));
    EXPECT_EQ(made.out, "Calibration board Normal mode\nchecke_pointstart:0 0 0\nchecke_pointend:20 10 0\n");
  }
}

TEST(BoardModel, OfTooManyDotsIsRefusedBeforeAnythingIsPrinted) {
  const ConsoleCapture console;
  EXPECT_THROW(makeBoardModel(board(4097, 4096, 10.0F, 0), {}), cv::Exception);
  EXPECT_EQ(console.out(), "");
}

TEST(BoardModel, WithoutPointsNothingButTheModeIsPrinted) {
  const Made made = make(board(0, 5, 10.0F, 0));
  EXPECT_TRUE(made.model.empty());
  EXPECT_EQ(made.out, "Calibration board Normal mode\n");
}

}  // namespace
