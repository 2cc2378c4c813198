#include "polar/measure/BoardPose.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/ConsoleCapture.h"
#include "tools/scene/Pose.h"
#include "tools/scene/StereoRig.h"

namespace {

constexpr const char* kTarget =
    "rows: 5\ncols: 7\ninner_width: 3\ninner_height: 3\noutter_width: 5\noutter_height: 5\n"
    "step: 20\nboard_type: 2\nratio_solid: 0.3\nratio_big_ring: 0.4\n";

struct BoardPoseTest : testing::Test {
  ConsoleCapture console;
  kestrune::RingTarget target;
  kestrune::RingTarget::Points points;
  PoseCamera camera{(cv::Mat_<double>(3, 3) << 600, 0, 320, 0, 600, 240, 0, 0, 1), cv::Mat::zeros(8, 1, CV_64FC1)};
  scene::Pose pose{scene::rotationFromAngles({0.0, 0.3, 0.0}), {-40, -30, 400}};

  BoardPoseTest() {
    target.loadConfig(kTarget);
    for (std::int32_t id = 0; id < 35; ++id) see(id);
  }
  void see(std::int32_t id) {
    const scene::Point3 p = scene::transformed(pose, {20.0 * (id % 7), 20.0 * (id / 7), 0});
    kestrune::morvenkit::CtrlPoint<double> point;
    point.x = 600 * p.x / p.z + 320;
    point.y = 600 * p.y / p.z + 240;
    point.id = id;
    points.push_back(point);
  }
};

TEST_F(BoardPoseTest, ReportsTheRotationVectorInDegreesAndTheMiddlesDistance) {
  const BoardPose found = estimateBoardPose(target, points, camera);
  // A turn about y alone: its rotation vector is (0, 0.3, 0).
  EXPECT_NEAR(found.report[0], 0.0, 0.01);
  EXPECT_NEAR(found.report[1], 0.3 * 180.0 / CV_PI, 0.01);
  EXPECT_NEAR(found.report[2], 0.0, 0.01);
  // The middle dot of 5 x 7 stands at (60, 40).
  EXPECT_NEAR(found.report[3], scene::norm(scene::transformed(pose, {60, 40, 0})), 0.01);
  for (std::size_t k = 0; k < 9; ++k) EXPECT_NEAR(found.R.val[k], pose.rotation.values[k], 1e-4);
}

TEST_F(BoardPoseTest, SaysNothingOfEnoughPoints) {
  points.resize(6);
  points[5] = points[4];
  points.back().id = 34;
  points.pop_back();
  see(34);
  const std::size_t before = console.out().size();
  estimateBoardPose(target, points, camera);
  EXPECT_EQ(console.out().substr(before), "");
}

TEST_F(BoardPoseTest, FewPointsAreToldOfOnceAPoint) {
  points = {};
  for (const std::int32_t id : {0, 6, 17, 28, 34}) see(id);
  const std::size_t before = console.out().size();
  estimateBoardPose(target, points, camera);
  std::string expected;
  for (int k = 0; k < 5; ++k) expected += "eccentricity err!";
  EXPECT_EQ(console.out().substr(before), expected);
}

TEST_F(BoardPoseTest, IdBeyondTheBoardIsAnError) {
  points[3].id = 35;
  EXPECT_THROW(estimateBoardPose(target, points, camera), std::out_of_range);
  points[3].id = -1;
  EXPECT_THROW(estimateBoardPose(target, points, camera), std::out_of_range);
}

}  // namespace
