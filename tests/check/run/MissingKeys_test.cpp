#include "check/run/MissingKeys.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

const std::vector<double> kPoint = {1.0, 2.0, 3.0};

PolarConfig complete() {
  PolarConfig config;
  config.triangulate_dis_switch = 1;
  config.foursixmethod_swithch = 1;
  config.TriPoint1_GT = config.TriPoint2_GT = config.TriPoint3_GT = config.TriPoint4_GT = kPoint;
  config.PolPoint1_GT = config.PolPoint2_GT = config.PolPoint3_GT = config.PolPoint4_GT = kPoint;
  return config;
}

TEST(MissingKeys, AreThoseOfTheEvaluationsThatAreOn) {
  PolarConfig config = complete();
  EXPECT_EQ(missingKeys(config), "");
  config.PolPoint4_GT.clear();
  EXPECT_EQ(missingKeys(config), "has no PolPoint4_GT, which foursixmethod_swithch wants");
  config.TriPoint1_GT.clear();
  config.TriPoint3_GT.clear();
  EXPECT_EQ(missingKeys(config), "has no TriPoint1_GT, TriPoint3_GT, which triangulate_dis_switch wants");
  config.triangulate_dis_switch = 0;
  config.foursixmethod_swithch = 2;  // The cloud without distances.
  EXPECT_EQ(missingKeys(config), "");
}

TEST(MissingKeys, OfAFrameRunAreItsLists) {
  PolarConfig config;
  config.frame_work = 1;
  EXPECT_EQ(missingKeys(config), "") << "a run without a point reads nothing";
  config.Frame_ID = {1, 2};
  EXPECT_EQ(missingKeys(config), "has no Frame_3D, Frame_IRL, Frame_IRR, which frame_work wants");
  config.Frame_3D = {kPoint, kPoint};
  config.Frame_IRL = {{1.0, 2.0}, {3.0, 4.0}};
  config.Frame_IRR = {{1.0, 2.0}};
  EXPECT_EQ(missingKeys(config), "Frame_IRR has 1 entries, and frame_work reads 2: one for each of Frame_ID");
}

}  // namespace
}  // namespace polarline
