#include "diagnose/uncertainty/FitRepeater.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "polar/geometry/RigidAlignment.h"
#include "support/ConsoleCapture.h"
#include "support/NormalDraw.h"

namespace {

constexpr int kColumns = 9;
constexpr int kDots = 72;

struct FitRepeaterOfABoard : testing::Test {
  ConsoleCapture quiet;
  NormalDraw normal{1};
  PairEvaluator evaluator{std::make_shared<const PolarConfig>()};
  Eigen::Matrix3Xd truth{3, kDots};
  Eigen::Matrix3Xd positions{3, kDots};
  CentreNoise noise;
  std::vector<std::int32_t> ids;

  FitRepeaterOfABoard() {
    for (int dot = 0; dot < kDots; ++dot) {
      truth.col(dot) << 18.0 * (dot % kColumns), 18.0 * (dot / kColumns), 0.0;
      positions.col(dot) = truth.col(dot) + Eigen::Vector3d(-70.0, -60.0, 500.0 + 0.2 * truth(0, dot));
      positions.col(dot) += 0.1 * Eigen::Vector3d(normal(), normal(), 3.0 * normal());
      noise[dot] = {{}, {0.01 * normal(), 0.01 * normal()}};
      ids.push_back(dot);
    }
    evaluator.figures.setMeasured(FigureGroup::kAlignment);
    evaluator.figures.setMeasured(FigureGroup::kSpace);
  }
  static std::vector<cv::Point3f> pointsOf(const Eigen::Matrix3Xd& points) {
    std::vector<cv::Point3f> list;
    for (Eigen::Index k = 0; k < points.cols(); ++k) {
      list.emplace_back(static_cast<float>(points(0, k)), static_cast<float>(points(1, k)),
                        static_cast<float>(points(2, k)));
    }
    return list;
  }
  /// The library's own fit.
  std::array<float, 4> fitted(const Eigen::Matrix3Xd& measured) const {
    std::array<float, 4> rms{};
    std::vector<cv::Point3f> aligned;
    AlignRigid(rms, pointsOf(truth), pointsOf(measured), aligned);
    return rms;
  }
  std::vector<RepeatedFigure> repeated(const Eigen::Matrix3Xd& shifts) const {
    const DotScene scene(ids, kColumns, noise, noise);
    FitRepeater repeater(evaluator, scene, positions, truth);
    repeater.add({Eigen::Matrix4Xd::Zero(4, kDots), shifts});
    return repeater.figures;
  }
};

TEST_F(FitRepeaterOfABoard, WithoutShiftsIsTheFigure) {
  const std::array<float, 4> rms = fitted(positions);
  const auto figures = repeated(Eigen::Matrix3Xd::Zero(3, kDots));
  ASSERT_EQ(figures.size(), 5U);
  for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR(figures[k].values.at(0), rms.at(k), 1e-4) << figures[k].name;
  EXPECT_STREQ(figures[4].name, "space_rms");
  EXPECT_NEAR(figures[4].values.at(0), rms[3], 1e-4);
}

TEST_F(FitRepeaterOfABoard, FitsAnewAsTheLibraryDoes) {
  // A slope of the depth: the fit takes it up, all but what a rigid board cannot follow.
  Eigen::Matrix3Xd shifts = Eigen::Matrix3Xd::Zero(3, kDots);
  for (int dot = 0; dot < kDots; ++dot) {
    shifts(2, dot) = 0.005 * truth(1, dot) + 0.1 * normal();
    shifts(0, dot) = 0.3 + 0.05 * normal();
  }
  const std::array<float, 4> before = fitted(positions);
  const std::array<float, 4> after = fitted(positions + shifts);
  const auto figures = repeated(shifts);
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_NEAR(figures[k].values.at(0), after.at(k), 0.05 * std::abs(after.at(k) - before.at(k)) + 2e-4)
        << figures[k].name;
  }
}

TEST_F(FitRepeaterOfABoard, ProjectionFollowsSeenDotAndFit) {
  const cv::Matx33d K(800, 0, 320, 0, 800, 256, 0, 0, 1);
  evaluator.seen.cameras.left_K = K;
  evaluator.figures.setMeasured(FigureGroup::kProjection);
  for (int dot = 0; dot < kDots; ++dot) {
    const cv::Point2f pixel(static_cast<float>(10 * dot), 20.0F);
    evaluator.seen.raw.push_back({dot, pixel, pixel});
    evaluator.seen.fitted_left.push_back(pixel + cv::Point2f(0.3F, -0.4F));
  }
  const DotScene scene(ids, kColumns, noise, noise);
  FitRepeater repeater(evaluator, scene, positions, truth);
  Eigen::Matrix4Xd pixels = Eigen::Matrix4Xd::Zero(4, kDots);
  repeater.add({pixels, Eigen::Matrix3Xd::Zero(3, kDots)});
  pixels.row(0).setConstant(0.3);
  pixels.row(1).setConstant(-0.4);
  repeater.add({pixels, Eigen::Matrix3Xd::Zero(3, kDots)});
  ASSERT_EQ(repeater.figures.size(), 6U);
  EXPECT_STREQ(repeater.figures[5].name, "gt_rms");
  EXPECT_NEAR(repeater.figures[5].values.at(0), 0.5, 1e-5);
  EXPECT_NEAR(repeater.figures[5].values.at(1), 0.0, 1e-5) << "the dots were seen where the board is";
}

}  // namespace
