#include "diagnose/uncertainty/PairUncertainty.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>

#include "support/ExactPair.h"
#include "support/NormalDraw.h"

namespace {

using polarline::FigureUncertainty;

constexpr int kRows = 9;
constexpr int kColumns = 11;
const cv::Mat kImage = cv::Mat::zeros(512, 640, CV_8UC1);

struct Deviations {
  double detection = 0.0;  ///< Of what the detection does wrong with each dot the same way each time, pixels.
  double noise = 0.0;      ///< Of what is another with each picture, pixels.
};

/// A pair whose pixels are exact but for errors that are given.
struct NoisyPair : ExactPair {
  NormalDraw normal{7};
  std::vector<cv::Vec4d> errors;  ///< Of the detection: left x, y, right x, y.
  Deviations deviations;

  explicit NoisyPair(const Deviations& asked) : deviations(asked) {
    makeBoard(kRows, kColumns);
    for (std::size_t id = 0; id < board.size(); ++id) {
      errors.emplace_back(normal(), normal(), normal(), normal());
      errors.back() *= deviations.detection;
    }
    config.triangulate_residual_switch = 1;
    config.discalswitch = true;
    config.spaceRms_switch = true;
    config.allpoints_calc_switch = 1;
    config.pattern_step = 18.0F;
    config.pattern_cols = kColumns;
    config.dy_bias_divid = 0.15F;
    rig.left.lens = {};
    rig.right.lens = {};
  }

  cv::Point2f noisy(const cv::Point2f& pixel, double dx, double dy) {
    return pixel + cv::Point2f(static_cast<float>(dx + deviations.noise * normal()),
                               static_cast<float>(dy + deviations.noise * normal()));
  }
  /// Another picture of the scene; `rectified` cameras stand side by side.
  void picture(bool rectified) {
    points = {};
    for (std::int32_t id = 0; id < kRows * kColumns; ++id) {
      const cv::Vec4d& error = errors[static_cast<std::size_t>(id)];
      const scene::Point3 point = pointLeft(board[static_cast<std::size_t>(id)]);
      const cv::Point2f left = pixelOf(rig.left, point);
      const cv::Point2f right = rectified ? left - cv::Point2f(static_cast<float>(rig.left.fx * 60.0 / point.z), -0.05F)
                                          : pixelOf(rig.right, scene::rightFromLeft(rig, point));
      shared(id, noisy(left, error[0], error[1]), noisy(right, error[2], error[3]));
    }
  }
  cv::Mat matrixQ() const {
    return (cv::Mat_<double>(4, 4) << 1, 0, 0, -rig.left.cx, 0, 1, 0, -rig.left.cy, 0, 0, 0, rig.left.fx, 0, 0,
            1.0 / 60.0, 0);
  }
  /// All figures of another picture.
  PairEvaluator evaluated() {
    PairEvaluator result = exactEvaluator();
    picture(false);
    EXPECT_EQ(result.CalTriangulateRepBrown({0, "target", kImage, kImage, cameras()}), 0);
    EXPECT_EQ(result.CheckBoardBrown({0, "target", kImage, kImage, cameras()}), 0);
    picture(true);
    float variance_x = 0.0F;
    float variance_y = 0.0F;
    EXPECT_EQ(result.CheckRowDisparity({0, "target", kImage, kImage}, variance_x, variance_y), 0);
    std::vector<cv::Point2f> left, right;
    std::vector<CloudPoint> cloud;
    EXPECT_EQ(result.CheckPointCloud({0, "target", kImage, kImage}, matrixQ(), left, right, cloud), 0);
    return result;
  }
  /// As two detections of one picture would tell it.
  MeasuredNoise noise() {
    PairNoise noise;
    for (const auto& [id, centre] : points.left_by_id) {
      noise.left[id] = {cv::Point2d(centre), deviations.noise * cv::Vec2d(normal(), normal())};
      noise.right[id] = {cv::Point2d(points.right_by_id.at(id)), deviations.noise * cv::Vec2d(normal(), normal())};
    }
    return {noise, {}};
  }
};

double valueOf(const PairFigures& figures, const std::string& name) {
  const std::map<std::string, double> values = {
      {"tri_rms", figures.tri_rms},     {"tri_mean", figures.tri_mean},   {"dy_means", figures.dy_means},
      {"dy_ratio", figures.dy_ratio},   {"dis_rms", figures.dis_rms},     {"allpoints_means", figures.allpoints_means},
      {"nor_rms", figures.nor_rms},     {"zero_dis", figures.zero_dis},   {"icp_x_rms", figures.icp_x_rms},
      {"icp_y_rms", figures.icp_y_rms}, {"icp_z_rms", figures.icp_z_rms}, {"icp_nor_rms", figures.icp_nor_rms},
      {"space_rms", figures.space_rms}, {"gt_rms", figures.gt_rms}};
  return values.at(name);
}

const std::set<std::string> kMeans = {"tri_rms",   "tri_mean",  "dy_means", "dy_ratio",   "allpoints_means",
                                      "dis_rms",   "nor_rms",   "zero_dis", "icp_x_rms",  "icp_y_rms",
                                      "icp_z_rms", "space_rms", "gt_rms",   "icp_nor_rms"};

std::set<std::string> namesOf(const std::vector<FigureUncertainty>& uncertainties) {
  std::set<std::string> names;
  for (const FigureUncertainty& each : uncertainties) names.insert(each.name);
  return names;
}

TEST(PairUncertainty, EveryMeanAndRootMeanSquareHasOne) {
  NoisyPair pair({0.05, 0.05});
  const PairEvaluator evaluator = pair.evaluated();
  const auto uncertainties = pairUncertainty(evaluator, pair.noise(), kColumns, 1);
  EXPECT_EQ(namesOf(uncertainties), kMeans);
  for (const FigureUncertainty& each : uncertainties) {
    EXPECT_GT(each.sd, 0.0) << each.name;
    EXPECT_LE(each.low95, valueOf(evaluator.figures, each.name)) << each.name;
    EXPECT_GE(each.high95, valueOf(evaluator.figures, each.name)) << each.name;
  }
}

TEST(PairUncertainty, OnlyWhatThePairMeasuredHasOne) {
  NoisyPair pair({0.05, 0.05});
  PairEvaluator evaluator = pair.evaluated();
  evaluator.figures.measured.reset();
  EXPECT_TRUE(pairUncertainty(evaluator, pair.noise(), kColumns, 1).empty());
  evaluator.figures.setMeasured(FigureGroup::kRows);
  EXPECT_EQ(namesOf(pairUncertainty(evaluator, pair.noise(), kColumns, 1)),
            (std::set<std::string>{"dy_means", "dy_ratio"}));
  evaluator.seen = {};
  EXPECT_TRUE(pairUncertainty(evaluator, pair.noise(), kColumns, 1).empty());
}

TEST(PairUncertainty, FramesAndFourPointsAreNoMeans) {
  PairFigures figures;
  for (const FigureGroup group : {FigureGroup::kTriDis, FigureGroup::kFrame, FigureGroup::kPolDis}) {
    figures.setMeasured(group);
  }
  EXPECT_FALSE(hasMeans(figures));
  figures.setMeasured(FigureGroup::kSpacing);
  EXPECT_TRUE(hasMeans(figures));
}

TEST(PairUncertainty, SameSeedGivesTheSame) {
  NoisyPair pair({0.05, 0.05});
  const PairEvaluator evaluator = pair.evaluated();
  const MeasuredNoise noise = pair.noise();
  const auto sd = [&](std::uint64_t seed) { return pairUncertainty(evaluator, noise, kColumns, seed).at(0).sd; };
  EXPECT_EQ(sd(3), sd(3));
  EXPECT_NE(sd(3), sd(4));
}

double sdOf(const std::vector<FigureUncertainty>& uncertainties, const std::string& name) {
  for (const FigureUncertainty& each : uncertainties) {
    if (each.name == name) return each.sd;
  }
  return 0.0;
}

TEST(PairUncertainty, RectifiedFiguresFollowTheNoiseOfTheRectifiedPictures) {
  NoisyPair pair({0.1, 0.02});
  const PairEvaluator evaluator = pair.evaluated();
  MeasuredNoise noise = pair.noise();
  const auto of_raw = pairUncertainty(evaluator, noise, kColumns, 1);
  noise.rectified = noise.raw;
  for (CentreNoise* side : {&noise.rectified.left, &noise.rectified.right}) {
    for (auto& [id, centre] : *side) centre.shift *= 2.0;
  }
  const auto of_both = pairUncertainty(evaluator, noise, kColumns, 1);
  for (const char* name : {"tri_rms", "dis_rms", "space_rms"}) EXPECT_EQ(sdOf(of_both, name), sdOf(of_raw, name));
  for (const char* name : {"dy_means", "allpoints_means"})
    EXPECT_NEAR(sdOf(of_both, name) / sdOf(of_raw, name), 2.0, 0.2) << name;
}

TEST(PairUncertainty, BoardWithoutColumnsHasNone) {
  NoisyPair pair({0.05, 0.05});
  EXPECT_TRUE(pairUncertainty(pair.evaluated(), pair.noise(), 0, 1).empty());
}

TEST(PairUncertainty, WithoutMeasuredNoiseItIsTooWideRatherThanTooNarrow) {
  NoisyPair pair({0.1, 0.03});
  const PairEvaluator evaluator = pair.evaluated();
  const auto measured = pairUncertainty(evaluator, pair.noise(), kColumns, 1);
  const auto guessed = pairUncertainty(evaluator, {}, kColumns, 1);
  ASSERT_EQ(namesOf(guessed), kMeans);
  for (std::size_t k = 0; k < guessed.size(); ++k) {
    if (guessed[k].name == "dy_ratio") continue;  // Its steps are coarse.
    EXPECT_GT(guessed[k].sd, measured[k].sd) << guessed[k].name;
  }
}

struct Case {
  const char* name;
  Deviations deviations;
};

/// Of each figure: how many of the intervals hold its mean over the pictures.
struct PairUncertaintyCoverage : testing::TestWithParam<Case> {};

TEST_P(PairUncertaintyCoverage, IntervalsHoldTheMeanOverTheRepetitionsOfTheScene) {
  constexpr int kPictures = 40;
  NoisyPair pair(GetParam().deviations);
  std::map<std::string, double> mean;
  std::map<std::string, std::vector<FigureUncertainty>> told;
  for (int k = 0; k < kPictures; ++k) {
    const PairEvaluator evaluator = pair.evaluated();
    for (const FigureUncertainty& each : pairUncertainty(evaluator, pair.noise(), kColumns, 1)) {
      mean[each.name] += valueOf(evaluator.figures, each.name) / kPictures;
      told[each.name].push_back(each);
    }
  }
  for (const auto& [name, intervals] : told) {
    const auto holds = [&, at = mean.at(name)](const FigureUncertainty& each) {
      return each.low95 <= at && at <= each.high95;
    };
    const auto held = std::ranges::count_if(intervals, holds);
    EXPECT_GE(held, kPictures * 85 / 100) << name;
    if (GetParam().deviations.noise > 0.0) {
      EXPECT_GT(intervals[0].high95 - intervals[0].low95, 0.0) << name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, PairUncertaintyCoverage,
                         testing::Values(Case{"noise_only", {0.0, 0.05}}, Case{"both_alike", {0.05, 0.05}},
                                         Case{"detection_above_noise", {0.1, 0.03}}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
