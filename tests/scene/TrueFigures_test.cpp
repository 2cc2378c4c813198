#include "tools/scene/TrueFigures.h"

#include <gtest/gtest.h>

#include <cmath>

#include "polarline/errors.h"
#include "polarline/simulate.h"
#include "support/TempFolder.h"
#include "tools/scene/Presets.h"

namespace {

scene::TrueFigures figuresOf(const scene::Scene& scene) {
  return scene::trueFigures(scene, scene::pairTruth(scene, 0));
}

TEST(TrueFigures, RightCalibrationOfParallelCamerasMeasuresEveryLength) {
  scene::Scene scene = *scene::makePreset("rectified_1280");
  // Seen straight on, a circle's image has its centre where its own centre is seen.
  scene.left_from_board[0] = {{}, {-200.0, -200.0, 1000.0}};
  const scene::TrueFigures figures = figuresOf(scene);
  EXPECT_EQ(figures.points, 21U * 23U);
  EXPECT_EQ(figures.dy_max, 0.0);
  for (const double error : figures.pol_dis) EXPECT_NEAR(error, 0.0, 1e-9);
  double sum = 0.0;
  for (int row = 0; row < 21; ++row) {
    for (int column = 0; column < 23; ++column) sum += std::hypot(20.0 * column - 200.0, 20.0 * row - 200.0, 1000.0);
  }
  EXPECT_NEAR(figures.zero_dis, sum / (21.0 * 23.0), 1e-9);
}

TEST(TrueFigures, ALongerBaselineInTheCalibrationMakesEveryLengthLonger) {
  scene::Scene scene = *scene::makePreset("rectified_1280");
  scene.left_from_board[0] = {{}, {-200.0, -200.0, 1000.0}};
  scene.given.right_from_left_translation.x *= 1.01;
  const scene::TrueFigures figures = figuresOf(scene);
  // Places two in from the corners: 18 steps across, 16 down.
  const double across = 18.0 * 20.0, down = 16.0 * 20.0, diagonal = std::hypot(across, down);
  const double expected[] = {across, down, down, across, diagonal, diagonal};
  for (std::size_t k = 0; k < 6; ++k) EXPECT_NEAR(figures.pol_dis.at(k), 0.01 * expected[k], 1e-9) << k;
}

TEST(TrueFigures, RowOffsetIsTheRowDifferenceOfAllDots) {
  scene::Scene scene = *scene::makePreset("rectified_1280");
  scene.left_from_board[0] = {{}, {-200.0, -200.0, 1000.0}};
  scene.rig.right.cy += 0.75;
  const scene::TrueFigures figures = figuresOf(scene);
  EXPECT_NEAR(figures.dy_means, 0.75, 1e-9);
  EXPECT_NEAR(figures.dy_min, 0.75, 1e-9);
  EXPECT_NEAR(figures.dy_max, 0.75, 1e-9);
}

TEST(TrueFigures, DotsOutOfViewDoNotCount) {
  scene::Scene scene = *scene::makePreset("rectified_1280");
  scene.left_from_board[0] = {{}, {-200.0, -200.0, 1000.0}};
  scene.left_from_board[0].translation.x = 520.0;  // The first columns are in view only.
  const scene::TrueFigures figures = figuresOf(scene);
  EXPECT_GT(figures.points, 0U);
  EXPECT_LT(figures.points, 21U * 4U);
  scene.left_from_board[0].translation.x = 5000.0;
  EXPECT_EQ(figuresOf(scene).points, 0U);
  EXPECT_EQ(figuresOf(scene).dy_means, 0.0);
}

TEST(TrueFiguresOfASet, AreReadFromItsTruth) {
  const TempFolder folder;
  const std::string file = folder.write("scene.json", R"({"preset": "ring_320", "pairs": 2, "rig": {"width": 96,
      "height": 80}, "optics": {"supersampling": 1}, "misalignment": {"row_offset": 0.5}})");
  polarline::simulate(file, folder.file("set"));
  const auto pairs = polarline::truthOf(folder.file("set"));
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_NEAR(pairs[1].dy_means, 0.5, 0.02);
  EXPECT_EQ(pairs[1].points, 15U * 17U);
  EXPECT_THROW(polarline::truthOf(folder.path().string()), polarline::InputError);
  folder.write("truth.json", "{\"pairs\": [{}]}");
  EXPECT_THROW(polarline::truthOf(folder.path().string()), polarline::InputError);
  folder.write("truth.json", "{");
  EXPECT_THROW(polarline::truthOf(folder.path().string()), polarline::InputError);
}

}  // namespace
