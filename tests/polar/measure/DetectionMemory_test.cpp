#include "polar/measure/DetectionMemory.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "input/BoardGroundTruthReader.h"
#include "polar/run/PolarPrecision.h"
#include "support/HiddenDot.h"
#include "support/MeasurementFixture.h"
#include "support/SmallScene.h"
#include "tools/scene/WriteScene.h"

namespace {

struct DetectionMemoryOfAPicture : testing::Test, MeasurementFixture {
  DetectionMemory memory;

  /// By a target of its own, as each measurement has one.
  const Detection& detect(const cv::Mat& picture, const std::string& board) {
    target = std::make_unique<kestrune::RingTarget>();
    target->loadConfig(board);
    return memory.detect(*target, picture);
  }
  const Detection& detect(const cv::Mat& picture) { return detect(picture, rendered.target()); }

  std::unique_ptr<kestrune::RingTarget> target;
};

TEST_F(DetectionMemoryOfAPicture, IsWhatTheTargetFinds) {
  kestrune::RingTarget other;
  other.loadConfig(rendered.target());
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  other.detect(left, points, unidentified, cv::Mat());
  ASSERT_GT(points.size(), 6U);

  for (int time = 0; time < 2; ++time) {
    const Detection& found = detect(left);
    ASSERT_EQ(found.points.size(), points.size());
    for (std::size_t k = 0; k < points.size(); ++k) {
      EXPECT_EQ(found.points[k].id, points[k].id);
      EXPECT_EQ(found.points[k].x, points[k].x);
      EXPECT_EQ(found.points[k].y, points[k].y);
      EXPECT_EQ(found.points[k].edge_points, points[k].edge_points);
    }
  }
  EXPECT_EQ(memory.searches(), 1U);
}

TEST_F(DetectionMemoryOfAPicture, SamePixelsElsewhereAreTheSamePicture) {
  cv::Mat wide(left.rows, left.cols + 16, left.type(), cv::Scalar(7));
  left.copyTo(wide.colRange(16, wide.cols));
  detect(left);
  detect(left.clone());
  detect(wide.colRange(16, wide.cols));
  EXPECT_EQ(memory.searches(), 1U);
}

TEST_F(DetectionMemoryOfAPicture, OneOtherGreyValueIsAnotherPicture) {
  detect(left);
  left.at<uchar>(left.rows - 1, left.cols - 1) ^= 1;  // In place: whoever remembers where the pixels were is deceived.
  detect(left);
  EXPECT_EQ(memory.searches(), 2U);
}

TEST_F(DetectionMemoryOfAPicture, OtherShapeOfTheSameBytesIsAnotherPicture) {
  const cv::Mat flat(200, 400, CV_8UC1, cv::Scalar(90));
  detect(flat);
  detect(flat.reshape(1, 400));
  EXPECT_EQ(memory.searches(), 2U);
}

TEST_F(DetectionMemoryOfAPicture, LeftAndRightAreTwo) {
  const std::size_t found_left = detect(left).points.size();
  hideDot(right, rendered.truth().dots[0].ellipse_right);
  EXPECT_NE(detect(right).points.size(), found_left);
  EXPECT_EQ(detect(left).points.size(), found_left);
  EXPECT_EQ(memory.searches(), 2U);
}

TEST_F(DetectionMemoryOfAPicture, OtherBoardIsSearchedForAnew) {
  ASSERT_GT(detect(left).points.size(), 6U);
  EXPECT_TRUE(detect(left, "board_type: 3").points.empty());
  EXPECT_EQ(memory.searches(), 2U);
}

TEST_F(DetectionMemoryOfAPicture, TellsWhatWasFoundOfThatPictureAndBoardOnly) {
  const Detection& found = detect(left);
  const kestrune::RingTargetConfig board = target->config();
  EXPECT_EQ(memory.found(board, left.clone()), &found);
  EXPECT_EQ(memory.found(board, right), nullptr);
  kestrune::RingTargetConfig other = board;
  other.board_type = 3 - board.board_type;
  EXPECT_EQ(memory.found(other, left), nullptr);
  memory.forget();
  EXPECT_EQ(memory.found(board, left), nullptr);
  EXPECT_EQ(memory.searches(), 1U);
}

TEST_F(DetectionMemoryOfAPicture, ForgottenPictureIsSearchedAgain) {
  detect(left);
  memory.forget();
  detect(left);
  EXPECT_EQ(memory.searches(), 2U);
}

TEST_F(DetectionMemoryOfAPicture, LinesOfTheSearchComeEachTime) {
  const cv::Mat blank(102, 128, CV_8UC1, cv::Scalar(90));
  std::vector<std::string> said;
  for (int time = 0; time < 2; ++time) {
    const ConsoleCapture capture;
    EXPECT_NE(detect(blank).trace.step, kestrune::DetectionStep::kImage) << "the trace is that of the search";
    said.push_back(capture.err());
  }
  EXPECT_EQ(said[0], "Invalid rings or solidring number at the same size : 0 and 0(should be 4 or 1) \n");
  EXPECT_EQ(said[1], said[0]);
  EXPECT_EQ(memory.searches(), 1U);
}

TEST_F(DetectionMemoryOfAPicture, SearchThatThrowsIsNotRemembered) {
  for (int time = 0; time < 2; ++time) {
    const ConsoleCapture capture;
    EXPECT_THROW(detect(left, "board_type: 3\nbin_blocksize: 100000"), cv::Exception);
  }
  EXPECT_EQ(memory.searches(), 2U);
}

/// How many pictures the pairs of a run were searched in, by the end of each.
struct Searches final : RunObserver {
  std::vector<std::size_t> behind_pair;

  void pairDone(std::size_t /*index*/, bool /*finished*/, std::int32_t /*status*/,
                const PairEvaluator& evaluator) override {
    behind_pair.push_back(evaluator.detections.searches());
  }
};

struct RunCase {
  const char* name;
  scene::Scene scene;
  const char* more;  ///< Lines of the polar configuration.
  std::vector<std::size_t> searches;
  std::size_t measured_sides;  ///< By all evaluations of a pair, as the console tells.
};

class DetectionMemoryOfARun : public testing::TestWithParam<RunCase> {};

TEST_P(DetectionMemoryOfARun, SearchesEachPictureOnce) {
  const TempFolder folder;
  scene::writeScene(small_scene::withSecondPose(GetParam().scene), folder.path().string());
  const ConsoleCapture console;
  PolarPrecision precision;
  StereoCalibParams calib;
  RunArguments arguments;
  precision.ReadPolarConfig(TempFolder::contentOf(folder.file("polar.txt")) + "\n" + GetParam().more, "");
  precision.ReadCalibResult(folder.file("calib.json"), calib);
  precision.ReadImageList(folder.file("list.txt"), arguments.images);
  ReadBoardTxt(folder.file("board_gt.txt"), precision.boardPoints);
  arguments.targetConfigPath = folder.file("target.ini");
  Searches searches;
  arguments.observer = &searches;
  EXPECT_EQ(precision.RunImageSet(arguments, calib), 0);
  EXPECT_EQ(searches.behind_pair, GetParam().searches);

  std::size_t lines = 0;
  const std::string out = console.out();
  for (std::size_t at = 0; (at = out.find("detect point num : ", at)) != std::string::npos; ++at) ++lines;
  EXPECT_EQ(lines, 2 * GetParam().measured_sides);
}

INSTANTIATE_TEST_SUITE_P(
    Sets, DetectionMemoryOfARun,
    testing::Values(
        RunCase{"Everything", small_scene::dots(), "", {4, 8}, 8},
        // The two measurements of the first raw pair differ by the compensation only, not by what they search.
        RunCase{"Compensated", small_scene::dots(), "eccentricity: 1", {4, 8}, 8},
        RunCase{"RawOnly", small_scene::dots(), "dy_bias_switch: 0\nfoursixmethod_swithch: 0", {2, 4}, 4},
        RunCase{"Rings", small_scene::rings(), "", {4, 8}, 8},
        RunCase{"DetectedOnly", small_scene::dots(), "evalu_model: 1", {4, 8}, 0}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
