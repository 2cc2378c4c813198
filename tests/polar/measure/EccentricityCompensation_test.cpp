#include "polar/measure/EccentricityCompensation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/StereoRig.h"

namespace {

const cv::Matx33d kK(600, 0, 320, 0, 610, 250, 0, 0, 1);

/// A circle on a tilted board, seen by a pinhole.
struct TiltedCircle {
  scene::Pose camera_from_board{scene::rotationFromAngles({0.6, -0.4, 0.2}), {20, -30, 300}};
  scene::Point3 centre{25, 15, 0};
  double radius = 12.0;

  cv::Point2d seen(const scene::Point3& point_board) const {
    const scene::Point3 p = scene::transformed(camera_from_board, point_board);
    return {600 * p.x / p.z + 320, 610 * p.y / p.z + 250};
  }
  std::vector<cv::Point2f> edge(int count) const {
    std::vector<cv::Point2f> pixels;
    for (int k = 0; k < count; ++k) {
      const double t = 2.0 * CV_PI * k / count;
      const cv::Point2d pixel = seen(centre + scene::Point3{radius * std::cos(t), radius * std::sin(t), 0});
      pixels.emplace_back(static_cast<float>(pixel.x), static_cast<float>(pixel.y));
    }
    return pixels;
  }
  cv::Matx33d R() const { return cv::Matx33d(camera_from_board.rotation.values.data()); }
};

TEST(EccentricityCompensation, OutlineOfATiltedCircleGivesTheImageOfItsCentre) {
  const TiltedCircle circle;
  const cv::Point2d truth = circle.seen(circle.centre);
  const cv::Point2f compensated = compensatedCentre(circle.edge(40), kK, circle.R());
  EXPECT_NEAR(compensated.x, truth.x, 0.01);
  EXPECT_NEAR(compensated.y, truth.y, 0.01);
  // The centre of the imaged ellipse lies far off against that tolerance.
  const scene::Point2 ellipse = scene::idealEllipseCentre(circle.camera_from_board, circle.centre, circle.radius);
  EXPECT_GT(std::hypot(600 * ellipse.x + 320 - truth.x, 610 * ellipse.y + 250 - truth.y), 0.2);
}

class EccentricityCompensationFewEdgePoints : public testing::TestWithParam<int> {};

TEST_P(EccentricityCompensationFewEdgePoints, EndAtTheImageOfTheTurnedOrigin) {
  // The pixel (0, 0) of the turned view, carried back by K R K^-1.
  const TiltedCircle circle;
  const cv::Vec3d p = kK * circle.R() * kK.inv() * cv::Vec3d(0, 0, 1);
  std::vector<cv::Point2f> edge = circle.edge(40);
  edge.resize(static_cast<std::size_t>(GetParam()));
  const cv::Point2f compensated = compensatedCentre(edge, kK, circle.R());
  EXPECT_EQ(compensated.x, static_cast<float>(p[0] / p[2]));
  EXPECT_EQ(compensated.y, static_cast<float>(p[1] / p[2]));
  EXPECT_GT(cv::norm(cv::Point2d(compensated) - circle.seen(circle.centre)), 100.0);
}

INSTANTIATE_TEST_SUITE_P(Counts, EccentricityCompensationFewEdgePoints, testing::Values(0, 1, 4));

}  // namespace
