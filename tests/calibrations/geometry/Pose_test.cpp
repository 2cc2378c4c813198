#include "calibrations/geometry/Pose.h"

#include <gtest/gtest.h>

namespace {

using calibrations::Pose;

const Pose kQuarterAboutZ = {{0, -1, 0, 1, 0, 0, 0, 0, 1}, {1, 2, 3}};
const Pose kQuarterAboutX = {{1, 0, 0, 0, 0, -1, 0, 1, 0}, {10, 20, 30}};

cv::Vec3d moved(const Pose& pose, const cv::Vec3d& point) { return pose.R * point + pose.T; }

TEST(Pose, AppliesTheRightOneFirst) {
  const cv::Vec3d point(5, 6, 7);
  EXPECT_EQ(moved(kQuarterAboutX * kQuarterAboutZ, point), moved(kQuarterAboutX, moved(kQuarterAboutZ, point)));
  EXPECT_EQ(moved(kQuarterAboutX * kQuarterAboutZ, point), cv::Vec3d(5, 10, 37));  // By (-5, 7, 10).
}

TEST(Pose, IsUndoneByItsInverse) {
  const cv::Vec3d point(5, 6, 7);
  EXPECT_EQ(moved(inverse(kQuarterAboutZ), moved(kQuarterAboutZ, point)), point);
}

}  // namespace
