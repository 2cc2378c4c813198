#include "diagnose/uncertainty/DistanceRepeater.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "support/NormalDraw.h"

namespace {

Eigen::Matrix3Xd boardOf(int rows, int columns) {
  Eigen::Matrix3Xd board(3, rows * columns);
  for (int dot = 0; dot < rows * columns; ++dot) board.col(dot) << 18.0 * (dot % columns), 18.0 * (dot / columns), 0.0;
  return board;
}

Eigen::Matrix3Xd scatterOf(const Eigen::Matrix3Xd& points, double deviation, unsigned seed) {
  NormalDraw normal(seed);
  Eigen::Matrix3Xd shifts(3, points.cols());
  for (Eigen::Index dot = 0; dot < shifts.cols(); ++dot) {
    shifts.col(dot) = deviation * Eigen::Vector3d(normal(), normal(), normal());
  }
  return shifts;
}

struct Rms {
  double plain = 0.0;
  double relative = 0.0;
};

/// Over all pairs, one by one.
Rms rmsOf(const Eigen::Matrix3Xd& points, const Eigen::Matrix3Xd& truth) {
  Rms sums;
  double pairs = 0.0;
  for (Eigen::Index i = 0; i < points.cols(); ++i) {
    for (Eigen::Index j = 0; j < points.cols(); ++j) {
      if (i == j) continue;
      const double true_length = (truth.col(i) - truth.col(j)).norm();
      const double error = (points.col(i) - points.col(j)).norm() - true_length;
      sums.plain += error * error;
      sums.relative += error * error / (true_length * true_length);
      pairs += 1.0;
    }
  }
  return {std::sqrt(sums.plain / pairs), std::sqrt(sums.relative / pairs)};
}

struct DistanceRepeaterOfABoard : testing::Test {
  PairEvaluator evaluator{std::make_shared<const PolarConfig>()};
  Eigen::Matrix3Xd truth = boardOf(12, 15);
  Eigen::Matrix3Xd positions = (truth + scatterOf(truth, 0.05, 1)) * 1.001;

  Rms repeated(const Eigen::Matrix3Xd& shifts) {
    DistanceRepeater repeater(evaluator, positions, truth);
    repeater.add({Eigen::Matrix4Xd(), shifts});
    return {repeater.figures[0].values.at(0), repeater.figures[1].values.at(0)};
  }
};

TEST_F(DistanceRepeaterOfABoard, WithoutShiftsIsTheFigure) {
  const Rms direct = rmsOf(positions, truth);
  const Rms told = repeated(Eigen::Matrix3Xd::Zero(3, truth.cols()));
  EXPECT_NEAR(told.plain, direct.plain, 1e-12);
  EXPECT_NEAR(told.relative, direct.relative, 1e-15);
}

TEST_F(DistanceRepeaterOfABoard, FollowsTheShiftsAsTheFigureDoes) {
  const Rms before = rmsOf(positions, truth);
  for (const unsigned seed : {2U, 3U, 4U}) {
    const Eigen::Matrix3Xd shifts = scatterOf(truth, 0.05, seed);
    const Rms direct = rmsOf(positions + shifts, truth);
    const Rms told = repeated(shifts);
    EXPECT_NEAR(told.plain - before.plain, direct.plain - before.plain, 0.1 * std::abs(direct.plain - before.plain));
    EXPECT_NEAR(told.relative - before.relative, direct.relative - before.relative,
                0.1 * std::abs(direct.relative - before.relative));
  }
}

TEST_F(DistanceRepeaterOfABoard, RangeIsTheMeanDistance) {
  DistanceRepeater repeater(evaluator, positions, truth);
  const Eigen::Matrix3Xd shifts = scatterOf(truth, 1.0, 5);
  repeater.add({Eigen::Matrix4Xd(), shifts});
  EXPECT_NEAR(repeater.figures[2].values.at(0), (positions + shifts).colwise().norm().mean(), 1e-12);
}

TEST_F(DistanceRepeaterOfABoard, PartOfThePairsOfALargeBoardTellsAlmostTheSame) {
  truth = boardOf(45, 45);  // 2025 dots: every second pair.
  positions = (truth + scatterOf(truth, 0.05, 1)) * 1.001;
  EXPECT_NEAR(repeated(Eigen::Matrix3Xd::Zero(3, truth.cols())).plain, rmsOf(positions, truth).plain,
              0.01 * rmsOf(positions, truth).plain);
}

}  // namespace
