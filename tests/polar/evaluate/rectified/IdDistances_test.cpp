#include "polar/evaluate/rectified/IdDistances.h"

#include <gtest/gtest.h>

#include "support/ConsoleCapture.h"

namespace {

struct IdDistances : public ::testing::Test {
  ConsoleCapture console;
  std::vector<CloudPoint> cloud = {{0, 0, 0, 1, 1, 1}, {1, 0, 0, 4, 5, 1}, {2, 0, 0, 1, 13, 1}};
  std::vector<cv::Point3f> board = {{0, 0, 0}, {0, 4.5F, 0}, {0, 13, 0}};
  std::vector<double> id_dis;
};

TEST_F(IdDistances, MeasuredLessTrueDistanceInOrder) {
  EXPECT_EQ(evaluateIdDistances({{0, 1}, {2, 0}}, cloud, board, id_dis), 0);
  EXPECT_EQ(id_dis, (std::vector<double>{0.5, -1.0}));
  EXPECT_EQ(console.out(), "");
}

TEST_F(IdDistances, NoGroupsGiveNoValues) {
  id_dis = {9};
  EXPECT_EQ(evaluateIdDistances({}, cloud, board, id_dis), 0);
  EXPECT_TRUE(id_dis.empty());
}

struct MissingCase {
  std::vector<std::int32_t> group;
  const char* printed;
};
class IdDistancesMissingPoint : public IdDistances, public ::testing::WithParamInterface<MissingCase> {};

TEST_P(IdDistancesMissingPoint, IsPrintedAndEndsTheEvaluation) {
  id_dis = {0, 0, 42};
  EXPECT_EQ(evaluateIdDistances({{0, 1}, GetParam().group, {2, 0}}, cloud, board, id_dis), 12);
  EXPECT_EQ(console.out(), GetParam().printed);
  EXPECT_EQ(id_dis, (std::vector<double>{0.5, 0.0, 42.0}));
}

INSTANTIATE_TEST_SUITE_P(Groups, IdDistancesMissingPoint,
                         ::testing::Values(MissingCase{{7, 1}, "1 group 7_id not find \n"},
                                           MissingCase{{1, 8}, "1 group 8_id not find \n"},
                                           MissingCase{{7, 8}, "1 group 7_id not find \n"}));

TEST_F(IdDistances, APointWhoseSumTruncatesToZeroCountsAsMissing) {
  cloud[1] = {1, 0, 0, -2, 2.75F, -1.5F};  // Sum -0.75.
  EXPECT_EQ(evaluateIdDistances({{0, 1}}, cloud, board, id_dis), 12);
  cloud[1].z = -1.75F;  // Sum -1.
  EXPECT_EQ(evaluateIdDistances({{0, 1}}, cloud, board, id_dis), 0);
}

TEST_F(IdDistances, IdsBeyondTheBoardAndShortGroupsAreRefused) {
  cloud.push_back({3, 0, 0, 1, 2, 3});
  cloud.push_back({-1, 0, 0, 1, 2, 3});
  EXPECT_THROW(evaluateIdDistances({{0, 3}}, cloud, board, id_dis), std::out_of_range);
  EXPECT_THROW(evaluateIdDistances({{-1, 0}}, cloud, board, id_dis), std::out_of_range);
  EXPECT_THROW(evaluateIdDistances({{0}}, cloud, board, id_dis), std::out_of_range);
}

}  // namespace
