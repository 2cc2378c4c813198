// Rectification over the whole image: a right calibration gives no row difference up to the corners, a turned camera
// the one that geometry tells.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <sstream>

#include "support/RenderedSet.h"

namespace {

std::map<std::int32_t, double> rowDifferences(const std::string& table) {
  std::map<std::int32_t, double> rows;
  std::istringstream stream(table);
  std::int32_t id = 0;
  char comma = 0;
  double dy = 0.0;
  while (stream >> id >> comma >> dy) rows[id] = dy;
  return rows;
}

constexpr const char* kRowsOnly =
    "\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\nfoursixmethod_swithch: 0\nspaceRms_switch: "
    "0\nsavepolarline: 0\ndy_bias_savepng_swithch: 0";

struct Comparison {
  double mean = 0.0;       ///< Mean absolute row difference, pixels.
  double deviation = 0.0;  ///< Root mean square of measured less predicted.
  double farthest = 0.0;   ///< Largest distance of a measured dot from the rectified image's axis, in half diagonals.
  std::size_t count = 0;
};

Comparison compare(const scene::Scene& scene) {
  const RenderedSet set(scene);
  const TempFolder results;
  const RunOutcome run = set.evaluate(set.polarText() + kRowsOnly, results.path().string());
  EXPECT_EQ(run.status, 0) << run.err;
  Comparison sum;
  for (std::size_t pair = 0; pair < run.records.size(); ++pair) {
    const scene::PairTruth truth = scene::pairTruth(scene, pair);
    const double half_diagonal = 0.5 * std::hypot(scene.rig.left.width, scene.rig.left.height);
    for (const auto& [id, dy] : rowDifferences(results.read(std::to_string(pair) + "_left_dy.csv"))) {
      const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(id));
      sum.mean += dy;
      sum.deviation += std::pow(dy - std::abs(dot.row_difference), 2.0);
      const double reach = truth.rectified_focal * std::hypot(dot.rectified_left.x, dot.rectified_left.y);
      sum.farthest = std::max(sum.farthest, reach / half_diagonal);
      ++sum.count;
    }
  }
  sum.mean /= static_cast<double>(sum.count);
  sum.deviation = std::sqrt(sum.deviation / static_cast<double>(sum.count));
  return sum;
}

/// The preset's first pose, four times, moved so that the board reaches beyond each corner in turn.
scene::Scene intoTheCorners(const std::string& preset) {
  scene::Scene scene = *scene::makePreset(preset);
  const scene::Pose first = scene.left_from_board.at(0);
  scene.left_from_board.clear();
  // A fisheye sees farther to the side.
  const double shift = (preset == "fisheye_1280" ? 0.34 : 0.2) * first.translation.z;
  for (const double x : {-shift, shift})
    for (const double y : {-shift, shift}) {
      scene::Pose pose = first;
      pose.translation.x += x;
      pose.translation.y += y;
      scene.left_from_board.push_back(pose);
    }
  return scene;
}

class TurnedCameraWholeImage : public ::testing::TestWithParam<std::string> {};

TEST_P(TurnedCameraWholeImage, RightCalibrationLeavesNoRowDifferenceUpToTheCorners) {
  const Comparison result = compare(intoTheCorners(GetParam()));
  std::printf("%s: mean |dy| %.4f px over %zu points, out to %.2f half diagonals\n", GetParam().c_str(), result.mean,
              result.count, result.farthest);
  EXPECT_GT(result.count, 800U);
  EXPECT_GT(result.farthest, 0.9);
  EXPECT_LT(result.mean, 0.05);
}

TEST_P(TurnedCameraWholeImage, TurnedCameraGivesThePredictedDifference) {
  scene::Scene scene = *scene::makePreset(GetParam());
  scene.given.right_from_left_angles.rx += 0.08 * std::numbers::pi / 180.0;
  scene.given.right_from_left_angles.rz -= 0.05 * std::numbers::pi / 180.0;
  const Comparison result = compare(scene);
  std::printf("%s: mean |dy| %.4f px, deviation from the prediction %.4f px rms\n", GetParam().c_str(), result.mean,
              result.deviation);
  EXPECT_GT(result.mean, 0.3);
  EXPECT_LT(result.deviation, 0.05);
}

INSTANTIATE_TEST_SUITE_P(Lenses, TurnedCameraWholeImage, ::testing::Values("big_640", "fisheye_1280", "poly_1920"),
                         [](const auto& preset) { return preset.param; });

}  // namespace
