// The numbers that a run prints: that they are right, that they are those of the record, and how they are written.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <opencv2/calib3d.hpp>

#include "support/ConsoleLines.h"
#include "support/MemoryRun.h"
#include "support/TruePose.h"
#include "tools/scene/Lens.h"

namespace {

using console_lines::Notation;
using console_lines::textsBehind;
using console_lines::written;

/// Every evaluation off; what a test is about is switched on behind.
const std::string kOff =
    "\ndy_bias_switch: 0\nfoursixmethod_swithch: 0\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: "
    "0\nspaceRms_switch: 0\ndiscalswitch: 0\ndiscalsave: 0\n";

TEST(PrintedValues, PosesOfBothSidesInTheNotationThatTheStreamHasThen) {
  MemoryRun two(MemoryRun::twoPairs());
  const RunOutcome run = two.run(two.set.polarText() + kOff + "triangulate_residual_switch: 1\neccentricity: 1\n");
  ASSERT_EQ(run.records.size(), 2U);
  constexpr std::array<const char*, 8> kLabels = {"ir_left_rx: ",  "ir_left_ry: ",  "ir_left_rz: ",  "ir_left_dis: ",
                                                  "ir_right_rx: ", "ir_right_ry: ", "ir_right_rz: ", "ir_right_dis: "};
  const scene::Scene& scene = two.set.scene();
  for (std::size_t pair = 0; pair < 2; ++pair) {
    const scene::Pose& left_from_board = scene.left_from_board[pair];
    const auto left = truePose(left_from_board, scene.board);
    const auto right = truePose(scene::rightFromBoard(scene.rig, left_from_board), scene.board);
    for (std::size_t k = 0; k < 8; ++k) {
      SCOPED_TRACE(std::string(kLabels[k]) + std::to_string(pair));
      const std::vector<std::string> printed = textsBehind(kLabels[k], run.out);
      ASSERT_EQ(printed.size(), 2U);
      EXPECT_NEAR(std::stod(printed[pair]), k < 4 ? left[k] : right[k - 4], 0.3);
      // The first pair is measured before its evaluation has switched the stream to eight decimals, for good.
      EXPECT_EQ(printed[pair],
                written(run.records[pair].PoseReport[k], pair == 0 ? Notation::kDefault : Notation::kEightDecimals));
    }
  }
}

TEST(PrintedValues, PoseOfTheBoardCheckAloneStaysInTheDefaultNotation) {
  MemoryRun two(MemoryRun::twoPairs());
  const RunOutcome run = two.run(two.set.polarText() + kOff + "spaceRms_switch: 1\neccentricity: 1\n");
  ASSERT_EQ(run.records.size(), 2U);
  const std::vector<std::string> printed = textsBehind("ir_right_dis: ", run.out);
  ASSERT_EQ(printed.size(), 2U);
  for (std::size_t pair = 0; pair < 2; ++pair)
    EXPECT_EQ(printed[pair], written(run.records[pair].PoseReport[7], Notation::kDefault));
}

TEST(PrintedValues, PercentageBehindAPairIsInTheNotationOfTheStream) {
  MemoryRun two(MemoryRun::twoPairs());
  const auto percentages = [&](const std::string& evaluation) {
    std::vector<std::string> texts;
    for (const std::string& line : textsBehind("--------LoadImageFrames ------", two.run(evaluation).out))
      texts.push_back(line.substr(line.rfind(':') + 1));
    return texts;
  };
  const std::string off = two.set.polarText() + kOff;
  EXPECT_EQ(percentages(off), (std::vector<std::string>{"49.503", "99.003"}));
  EXPECT_EQ(percentages(off + "triangulate_residual_switch: 1"),
            (std::vector<std::string>{written(49.503F, Notation::kEightDecimals),
                                      written(99.003F, Notation::kEightDecimals)}));
}

/// A pair whose board is known to be what the pair itself measures, turned and a fiftieth too large: the fit has to
/// turn it back by the known angles and leaves a fiftieth of each point's way from the centroid.
struct TurnedBoard {
  static constexpr double kScale = 1.02;
  const cv::Vec3d turn_degrees{12.0, -25.0, 17.0};
  MemoryRun pair;
  std::vector<TriPointRecord> points;  ///< As measured.

  explicit TurnedBoard(const RenderedSet& set) : pair(set) {}

  std::string polar() const {
    return pair.set.polarText() + kOff + "triangulate_residual_switch: 1\ndiscalswitch: 1\n";
  }
  RunOutcome run() {
    const RunOutcome plain = pair.run(polar());
    points = plain.records.at(0).pairPoints;
    cv::Matx33d left_from_board;
    cv::Rodrigues(turn_degrees * (CV_PI / 180.0), left_from_board);
    for (const TriPointRecord& point : points)
      pair.calibration.boardPoints.at(static_cast<std::size_t>(point.id)) =
          cv::Point3d(left_from_board.t() * (kScale * (positionOf(point) - cv::Vec3d(5.0, -7.0, 300.0))));
    return pair.run(polar());
  }
  static cv::Vec3d positionOf(const TriPointRecord& point) { return {point.x, point.y, point.z}; }
  cv::Vec3d centroid() const {
    cv::Vec3d sum;
    for (const TriPointRecord& point : points) sum += positionOf(point);
    return sum / static_cast<double>(points.size());
  }
  /// Where the fit puts a point of the board.
  cv::Vec3d fitted(const TriPointRecord& point) const { return centroid() + kScale * (positionOf(point) - centroid()); }
};

/// What is printed behind a label, once and with eight decimals.
double printedOnce(const std::string& label, const std::string& out) {
  const std::vector<std::string> texts = textsBehind(label, out);
  EXPECT_EQ(texts.size(), 1U) << label;
  if (texts.size() != 1) return 0.0;
  EXPECT_EQ(texts[0].size() - texts[0].find('.'), 9U) << label << texts[0];
  return std::stod(texts[0]);
}

struct Model {
  const char* name;
  scene::Scene (*scene)();
};
class PrintedValuesFitOfATurnedBoard : public ::testing::TestWithParam<Model> {
 protected:
  RenderedSet set{GetParam().scene()};
  TurnedBoard board{set};
  RunOutcome run = board.run();
};

TEST_P(PrintedValuesFitOfATurnedBoard, IsPrintedWithItsRotationAndWhatItLeavesAlongEachAxis) {
  ASSERT_EQ(run.records.size(), 1U);
  EXPECT_NEAR(printedOnce("icp_rx:", run.out), 12.0, 2e-3);
  EXPECT_NEAR(printedOnce("icp_ry:", run.out), -25.0, 2e-3);
  EXPECT_NEAR(printedOnce("icp_rz:", run.out), 17.0, 2e-3);

  cv::Vec3d squares;
  for (const TriPointRecord& point : board.points) {
    const cv::Vec3d left = board.fitted(point) - TurnedBoard::positionOf(point);
    squares += left.mul(left) / static_cast<double>(board.points.size());
  }
  EXPECT_NEAR(printedOnce("icp_x_rms:   ", run.out), std::sqrt(squares[0]), 1e-3);
  EXPECT_NEAR(printedOnce("icp_y_rms:   ", run.out), std::sqrt(squares[1]), 1e-3);
  EXPECT_NEAR(printedOnce("icp_z_rms:   ", run.out), std::sqrt(squares[2]), 1e-3);
  EXPECT_NEAR(printedOnce("icp_nor_rms: ", run.out), std::sqrt(squares[0] + squares[1] + squares[2]), 1e-3);
  const PolarResultRecord& record = run.records[0];
  for (const auto& [label, figure] : {std::pair("icp_x_rms:   ", record.icp_x_rms),
                                      {"icp_y_rms:   ", record.icp_y_rms},
                                      {"icp_z_rms:   ", record.icp_z_rms},
                                      {"icp_nor_rms: ", record.icp_nor_rms}})
    EXPECT_EQ(textsBehind(label, run.out).at(0), written(figure, Notation::kEightDecimals)) << label;
}

TEST_P(PrintedValuesFitOfATurnedBoard, IsPrintedWithItsDistanceInTheLeftImage) {
  ASSERT_EQ(run.records.size(), 1U);
  double square_sum = 0.0;
  for (const TriPointRecord& point : board.points) {
    const cv::Vec3d fitted = board.fitted(point);
    const auto pixel = scene::project(set.scene().given.left, {fitted[0], fitted[1], fitted[2]});
    ASSERT_TRUE(pixel);
    square_sum += std::pow(pixel->x - point.left_x, 2.0) + std::pow(pixel->y - point.left_y, 2.0);
  }
  const double expected = std::sqrt(square_sum / static_cast<double>(board.points.size()));
  EXPECT_GT(expected, 0.2);
  EXPECT_NEAR(printedOnce("gt_rms:", run.out), expected, 1e-3);
  EXPECT_EQ(textsBehind("gt_rms:", run.out).at(0), written(run.records[0].gt_rms, Notation::kEightDecimals));
}

TEST_P(PrintedValuesFitOfATurnedBoard, ComesBehindTheFiguresOfTheDistances) {
  ASSERT_EQ(run.records.size(), 1U);
  double square_sum = 0.0;
  double range = 0.0;
  std::size_t pairs = 0;
  for (const TriPointRecord& a : board.points) {
    range += cv::norm(TurnedBoard::positionOf(a)) / static_cast<double>(board.points.size());
    for (const TriPointRecord& b : board.points) {
      if (a.id == b.id) continue;
      square_sum += std::pow(
          (1.0 - TurnedBoard::kScale) * cv::norm(TurnedBoard::positionOf(a) - TurnedBoard::positionOf(b)), 2.0);
      ++pairs;
    }
  }
  EXPECT_NEAR(printedOnce("dis_rms: ", run.out), std::sqrt(square_sum / static_cast<double>(pairs)), 1e-3);
  EXPECT_NEAR(printedOnce("zero_dis:", run.out), range, 1e-2);
  EXPECT_NEAR(printedOnce("nor_rms:", run.out), 1.0 - 1.0 / TurnedBoard::kScale, 1e-4);
  const PolarResultRecord& record = run.records[0];
  for (const auto& [label, figure] :
       {std::pair("dis_rms: ", record.dis_rms), {"zero_dis:", record.zero_dis}, {"nor_rms:", record.nor_rms}})
    EXPECT_EQ(textsBehind(label, run.out).at(0), written(figure, Notation::kEightDecimals)) << label;
}

INSTANTIATE_TEST_SUITE_P(Lenses, PrintedValuesFitOfATurnedBoard,
                         ::testing::Values(Model{"Brown", small_scene::dots}, Model{"Poly", small_scene::polynomial}),
                         [](const auto& model) { return model.param.name; });

}  // namespace
