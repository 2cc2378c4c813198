#include "polar/geometry/RigidAlignment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "platform/Console.h"
#include "support/ConsoleCapture.h"
#include "tools/scene/StereoRig.h"

namespace {

using Points = std::vector<cv::Point3f>;

struct RigidAlignment : testing::Test {
  ConsoleCapture console;
  std::array<float, 4> rms{};
  Points aligned;
  Points source = {{0, 0, 0}, {100, 0, 0}, {0, 50, 0}, {0, 0, 70}, {30, 20, 10}};

  static Points moved(const Points& points, const scene::Matrix3& R, const scene::Point3& t) {
    Points result;
    for (const cv::Point3f& point : points) {
      const scene::Point3 p = R * scene::Point3{point.x, point.y, point.z} + t;
      result.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z));
    }
    return result;
  }
  void expectAligned(const Points& target, double tolerance) const {
    ASSERT_EQ(aligned.size(), target.size());
    for (std::size_t k = 0; k < target.size(); ++k) EXPECT_LT(cv::norm(aligned[k] - target[k]), tolerance) << k;
  }
};

TEST_F(RigidAlignment, MovedSetIsCarriedOntoItself) {
  const Points target = moved(source, scene::rotationFromAngles({0.3, -0.2, 0.5}), {5, -7, 400});
  EXPECT_EQ(&AlignRigid(rms, source, target, aligned), &rms);
  expectAligned(target, 1e-3);
  for (const float figure : rms) EXPECT_LT(figure, 1e-3F);
}

TEST_F(RigidAlignment, PointsThatAreNoNumbersGiveNoMotion) {
  Points target = source;
  target[2].y = std::numeric_limits<float>::infinity();
  AlignRigid(rms, source, target, aligned);
  for (const cv::Point3f& point : aligned) EXPECT_TRUE(std::isnan(point.x) && std::isnan(point.z));
  for (const float figure : rms) EXPECT_TRUE(std::isnan(figure));
}

TEST_F(RigidAlignment, PrintsRotationVectorAndResiduals) {
  // A quarter turn about z: rotation vector (0, 0, 90) degrees. The figures are exact, the coordinates whole numbers.
  const Points target = moved(source, {{0, -1, 0, 1, 0, 0, 0, 0, 1}}, {0, 0, 0});
  console::useFixedNotation();
  AlignRigid(rms, source, target, aligned);
  const std::string out = console.out();
  EXPECT_NE(out.find("icp_rz:90.0000"), std::string::npos) << out;
  const std::size_t rx = out.find("icp_rx:"), ry = out.find("\nicp_ry:"), rz = out.find("\nicp_rz:");
  const std::size_t x = out.find("\nicp_x_rms:   0.0000"), y = out.find("\nicp_y_rms:   0.0000");
  const std::size_t z = out.find("\nicp_z_rms:   0.0000"), nor = out.find("\nicp_nor_rms: 0.0000");
  EXPECT_TRUE(rx == 0 && rx < ry && ry < rz && rz < x && x < y && y < z && z < nor && nor != std::string::npos) << out;
  EXPECT_EQ(out.back(), '\n');
}

TEST_F(RigidAlignment, ResidualsByAxisAndTogether) {
  // A symmetric displacement that no motion takes away: the x arm is 2 too long on both ends.
  source = {{-10, 0, 0}, {10, 0, 0}, {0, -10, 0}, {0, 10, 0}, {0, 0, -10}, {0, 0, 10}};
  Points target = source;
  target[0].x -= 2;
  target[1].x += 2;
  target[2].y -= 1;
  target[3].y += 1;
  AlignRigid(rms, source, target, aligned);
  EXPECT_NEAR(rms[0], std::sqrt(8.0 / 6.0), 1e-5);
  EXPECT_NEAR(rms[1], std::sqrt(2.0 / 6.0), 1e-5);
  EXPECT_NEAR(rms[2], 0.0, 1e-5);
  EXPECT_NEAR(rms[3], std::sqrt(10.0 / 6.0), 1e-5);
}

TEST_F(RigidAlignment, MirroredSetStaysMirrored) {
  Points target = source;
  for (cv::Point3f& point : target) point.z = -point.z;
  AlignRigid(rms, source, target, aligned);
  expectAligned(target, 1e-3);
}

TEST_F(RigidAlignment, OnePointPairFitsWithoutResidual) {
  AlignRigid(rms, {{1, 2, 3}}, {{50, 60, 70}}, aligned);
  expectAligned({{50, 60, 70}}, 1e-4);
  EXPECT_LT(rms[3], 1e-4F);
}

TEST_F(RigidAlignment, CoplanarBoardIsFitted) {
  source = {{0, 0, 0}, {100, 0, 0}, {0, 50, 0}, {100, 50, 0}};
  const Points target = moved(source, scene::rotationFromAngles({-0.4, 0.1, 0.2}), {1, 2, 300});
  AlignRigid(rms, source, target, aligned);
  expectAligned(target, 1e-3);
}

TEST_F(RigidAlignment, FormerContentOfTheResultGoes) {
  aligned.resize(50);
  AlignRigid(rms, source, source, aligned);
  EXPECT_EQ(aligned.size(), source.size());
}

TEST_F(RigidAlignment, WrongListsAreRefusedBeforeAnythingIsPrinted) {
  const auto textOf = [&](const Points& from, const Points& to) -> std::string {
    try {
      AlignRigid(rms, from, to, aligned);
    } catch (const std::invalid_argument& refused) {
      return refused.what();
    }
    return "";
  };
  EXPECT_EQ(textOf({}, {}), "Point sets must be non-empty and of the same size.");
  EXPECT_EQ(textOf(source, {{1, 2, 3}}), "Point sets must be non-empty and of the same size.");
  EXPECT_EQ(console.out(), "");
}

TEST_F(RigidAlignment, CentroidsAreInSinglePrecision) {
  // The sum 2^24 + 1 + 1 loses its ones: the centroid is 5592405.5 and not 5592406. The target's sum is exact.
  source = {{16777216, 0, 0}, {1, 0, 0}, {1, 0, 0}};
  const Points target = {{0, 0, 0}, {-16777215, 0, 0}, {-16777215, 0, 0}};
  AlignRigid(rms, source, target, aligned);
  EXPECT_NEAR(aligned[0].x, 0.5, 1e-3);
}

TEST_F(RigidAlignment, ResidualsAreSummedInSinglePrecision) {
  // Two ends of the x arm 8192 too long, then ten pairs along y with 2.5 each: their squares, 6.25, are lost in the
  // total of 2^27.
  source = {{-10, 0, 0}, {10, 0, 0}};
  Points target = {{-8202, 0, 0}, {8202, 0, 0}};
  for (int k = 0; k < 10; ++k) {
    source.insert(source.end(), {{0, -10, 0}, {0, 10, 0}});
    target.insert(target.end(), {{0, -12.5F, 0}, {0, 12.5F, 0}});
  }
  AlignRigid(rms, source, target, aligned);
  EXPECT_EQ(rms[3], std::sqrt(134217728.0F / 22.0F));
  EXPECT_NE(rms[3], static_cast<float>(std::sqrt(134217853.0 / 22.0)));
  EXPECT_EQ(rms[1], std::sqrt(125.0F / 22.0F));
}

TEST_F(RigidAlignment, ResidualsOfEachAxisAreSummedInSinglePrecision) {
  for (int axis = 0; axis < 3; ++axis) {
    const auto at = [](int along, float value) {
      cv::Vec3f point(0, 0, 0);
      point[along] = value;
      return cv::Point3f(point);
    };
    // Two ends of the axis's own arm 8192 too long, then 2.5 along it at both ends of one other arm, -2.5 at the last.
    source = {at(axis, -10), at(axis, 10)};
    Points target = {at(axis, -8202), at(axis, 8202)};
    for (int k = 0; k < 10; ++k) {
      for (const float end : {-10.0F, 10.0F}) {
        const cv::Point3f one = at((axis + 1) % 3, end), last = at((axis + 2) % 3, end);
        source.insert(source.end(), {one, last});
        target.insert(target.end(), {one + at(axis, 2.5F), last + at(axis, -2.5F)});
      }
    }
    AlignRigid(rms, source, target, aligned);
    EXPECT_EQ(rms[static_cast<std::size_t>(axis)], std::sqrt(134217728.0F / 42.0F)) << axis;
  }
}

}  // namespace
