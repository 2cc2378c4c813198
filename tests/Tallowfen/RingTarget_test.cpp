#include "Tallowfen/src/RingTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <system_error>

#include "DetectorDefaults.h"
#include "tests/support/ConsoleCapture.h"
#include "tests/support/TempFolder.h"

namespace {

using kestrune::RingTarget;
using kestrune::RingTargetConfig;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kSmallBoard = "board_type: 2\nrows: 2\ncols: 3\nstep: 10\nratio_solid: 0.25\n";

struct Loaded {
  bool result;
  std::string out, err;
};

Loaded load(RingTarget& target, const std::string& config) {
  const ConsoleCapture console;
  Loaded loaded{target.loadConfig(config), "", ""};
  loaded.out = console.out();
  loaded.err = console.err();
  return loaded;
}

TEST(RingTarget, BeforeItsConfigurationItHasTheDefaultBoard) {
  const RingTarget target;
  const RingTargetConfig& config = target.config();
  EXPECT_EQ(config.seed, 0);
  EXPECT_EQ(config.rows, 71);
  EXPECT_EQ(config.cols, 73);
  EXPECT_EQ(config.inner_width, 17);
  EXPECT_EQ(config.inner_height, 13);
  EXPECT_EQ(config.outter_width, 33);
  EXPECT_EQ(config.outter_height, 25);
  EXPECT_EQ(config.step, 17.5F);
  EXPECT_EQ(config.step_y, 17.5F);
  EXPECT_EQ(config.board_type, 2);
  EXPECT_EQ(config.ratio_solid, 0.3F);
  EXPECT_EQ(config.ratio_big_ring, 0.4F);
  EXPECT_THAT(config.detection_id, ElementsAre(0));
  expectDetectorDefaults(config);
}

TEST(RingTarget, BeforeItsConfigurationItHoldsNothing) {
  const RingTarget target;
  EXPECT_THAT(target.patterns(), IsEmpty());
  EXPECT_THAT(target.boardModel(), IsEmpty());
  EXPECT_THAT(target.boardPointIds(), IsEmpty());
  EXPECT_THAT(target.identifiedEllipses(), IsEmpty());
  EXPECT_THAT(target.unidentifiedEllipses(), IsEmpty());
  EXPECT_FALSE(target.markerSizes().rings_small);
  EXPECT_FALSE(target.markerSizes().solid_big);
  EXPECT_FALSE(target.markerSizes().big_dot_board);
  EXPECT_TRUE(target.getBinaryImage().empty());
}

TEST(RingTargetLoadConfig, AnEmptyConfigurationIsToldWithoutALineEnd) {
  RingTarget target;
  const Loaded loaded = load(target, "");
  EXPECT_FALSE(loaded.result);
  EXPECT_EQ(loaded.out, "Calibconfig is NULL");
  EXPECT_EQ(loaded.err, "");
}

TEST(RingTargetLoadConfig, AnEmptyTextIsTold) {
  const TempFolder folder;
  RingTarget target;
  const Loaded loaded = load(target, folder.write("t.ini", ""));
  EXPECT_FALSE(loaded.result);
  EXPECT_EQ(loaded.out, "Calibconfig is empty or no content was read.\n");
}

TEST(RingTargetLoadConfig, TextBecomesTheBoardsModel) {
  RingTarget target;
  const Loaded loaded = load(target, kSmallBoard);
  EXPECT_TRUE(loaded.result);
  EXPECT_EQ(loaded.out, "Calibration board Normal mode\nchecke_pointstart:0 0 0\nchecke_pointend:20 10 0\n");
  EXPECT_EQ(target.config().rows, 2);
  ASSERT_EQ(target.patterns().size(), 1U);
  EXPECT_EQ(target.patterns()[0].cols, 3);
  EXPECT_THAT(target.boardPointIds(), ElementsAre(0, 1, 2, 3, 4, 5));
  ASSERT_EQ(target.boardModel().size(), 6U);
  EXPECT_EQ(target.boardModel()[5].radius, 2.5);
  EXPECT_EQ(target.centreIndex(), 1);
}

TEST(RingTargetLoadConfig, AnIniFileIsRead) {
  const TempFolder folder;
  RingTarget target;
  EXPECT_TRUE(load(target, folder.write("t.ini", kSmallBoard)).result);
  EXPECT_EQ(target.config().rows, 2);
}

TEST(RingTargetLoadConfig, AStorageFileIsRead) {
  const TempFolder folder;
  RingTarget target;
  EXPECT_TRUE(load(target, folder.write("t.json", R"({ "patterns": [ { "board_type": 3, "rows": 71, "cols": 73 } ] })"))
                  .result);
  EXPECT_EQ(target.config().board_type, 3);
  EXPECT_EQ(target.centreIndex(), 2591);
}

TEST(RingTargetLoadConfig, AnExistingTxtFileIsTakenAsTextAndHoldsNothing) {
  const TempFolder folder;
  RingTarget target;
  EXPECT_TRUE(load(target, folder.write("t.txt", kSmallBoard)).result);
  EXPECT_THAT(target.patterns(), IsEmpty());
  EXPECT_EQ(target.config().rows, 71);
  EXPECT_EQ(target.boardModel().size(), 71U * 73U) << "the board of the defaults";
}

TEST(RingTargetLoadConfig, AnUnknownBoardInAnIniFileGivesNoRecordButInAStorageFileAnError) {
  const TempFolder folder;
  RingTarget target;
  EXPECT_TRUE(load(target, folder.write("t.ini", "board_type: 4\nrows: 3\n")).result);
  EXPECT_THAT(target.patterns(), IsEmpty());
  EXPECT_EQ(target.config().rows, 71);
  const std::string xml =
      folder.write("t.xml",
                   "<?xml version=\"1.0\"?>\n<opencv_storage><patterns><_><board_type>4</board_type></_>"
                   "</patterns></opencv_storage>\n");
  EXPECT_THROW(target.loadConfig(xml), std::system_error);
}

TEST(RingTargetLoadConfig, GroundTruthOfTheWholeBoardIsItsModel) {
  RingTarget target;
  std::vector<cv::Point3f> truth(6, {1.5F, 2.5F, 3.5F});
  EXPECT_TRUE(target.setBoardPoints(truth));
  const Loaded loaded = load(target, kSmallBoard);
  EXPECT_THAT(loaded.out, HasSubstr("Calibration board GT mode\n"));
  EXPECT_EQ(target.boardModel()[2].position, cv::Point3d(1.5, 2.5, 3.5));
}

TEST(RingTargetLoadConfig, ASecondConfigurationReplacesTheFirst) {
  RingTarget target;
  load(target, kSmallBoard);
  load(target, "board_type: 2\nrows: 1\ncols: 2\nstep: 5\n");
  EXPECT_EQ(target.patterns().size(), 1U);
  EXPECT_THAT(target.boardPointIds(), ElementsAre(0, 1));
}

TEST(RingTargetLoadConfig, AnUnknownBoardAfterAKnownOneBringsTheDefaultsBack) {
  RingTarget target;
  load(target, "board_type: 3\nrows: 2\ncols: 3\nstep: 10\nid_method: 1\nbin_blocksize: 50\nmin_radius: 7\n");
  ASSERT_EQ(target.config().id_method, 1);
  EXPECT_TRUE(load(target, "board_type: 4\nrows: 3\n").result);
  const RingTargetConfig defaults;
  EXPECT_EQ(target.config().board_type, 2);
  EXPECT_EQ(target.config().rows, 71);
  EXPECT_EQ(target.config().cols, 73);
  EXPECT_EQ(target.config().step, 17.5F);
  EXPECT_EQ(target.config().id_method, defaults.id_method);
  EXPECT_EQ(target.config().bin_blocksize, defaults.bin_blocksize);
  EXPECT_EQ(target.config().min_radius, defaults.min_radius);
  EXPECT_THAT(target.patterns(), IsEmpty());
  EXPECT_EQ(target.boardModel().size(), 71U * 73U);
  EXPECT_EQ(target.centreIndex(), 2591);
}

TEST(RingTargetLoadConfig, ABigDotBoardWithoutARowPitchIsSquare) {
  for (const char* row_pitch : {"", "step_y: 0\n"}) {
    RingTarget target;
    EXPECT_TRUE(load(target, std::string("board_type: 3\nrows: 3\ncols: 2\nstep: 12.5\n") + row_pitch).result);
    EXPECT_EQ(target.config().step_y, 0.0F);
    ASSERT_EQ(target.boardModel().size(), 6U);
    EXPECT_EQ(target.boardModel()[5].position, cv::Point3d(12.5, 25.0, 0.0));
  }
}

class RingTargetOversizedBoard : public testing::TestWithParam<const char*> {};

TEST_P(RingTargetOversizedBoard, IsRefusedAndLeavesTheTargetAsItWas) {
  RingTarget target;
  load(target, kSmallBoard);
  EXPECT_THROW(load(target, GetParam()), cv::Exception);
  EXPECT_EQ(target.config().rows, 2);
  EXPECT_EQ(target.patterns().size(), 1U);
  EXPECT_EQ(target.boardModel().size(), 6U);
  EXPECT_EQ(target.centreIndex(), 1);
}

INSTANTIATE_TEST_SUITE_P(Texts, RingTargetOversizedBoard,
                         testing::Values("board_type: 2\nrows: 20000\ncols: 20000\n",
                                         "board_type: 3\nrows: 65535\ncols: 65535\nid_method: 1\n",
                                         "board_type: 1\nrows: -1\ncols: 257\n"));

// A word reads as the largest int, of which 16 bits stay.
TEST(RingTargetLoadConfig, SizesThatAreWordsInADocumentMakeAnOversizedBoard) {
  const TempFolder folder;
  const std::string path =
      folder.write("t.json", R"({ "patterns": [ { "board_type": 2, "rows": "71", "cols": "73" } ] })");
  RingTarget target;
  EXPECT_THROW(load(target, path), cv::Exception);
}

TEST(RingTargetSetBoardPoints, FewerThanSixKeepTheOldOnes) {
  RingTarget target;
  EXPECT_TRUE(target.setBoardPoints(std::vector<cv::Point3f>(6, {7, 7, 7})));
  EXPECT_FALSE(target.setBoardPoints(std::vector<cv::Point3f>(5, {8, 8, 8})));
  EXPECT_THAT(load(target, kSmallBoard).out, HasSubstr("GT mode\nchecke_pointstart:7 7 7\n"));
}

TEST(RingTargetSetDetectionRegion, TakesExactlyFourValues) {
  RingTarget target;
  EXPECT_TRUE(target.setDetectionRegion({0, 1, 0, 1}));
  EXPECT_FALSE(target.setDetectionRegion({0, 1, 0}));
  EXPECT_FALSE(target.setDetectionRegion({}));
  EXPECT_FALSE(target.setDetectionRegion({0, 1, 0, 1, 0}));
}

TEST(RingTargetSaveConfig, ComesBackAsTheSameGeometry) {
  const TempFolder folder;
  RingTarget target;
  load(target, kSmallBoard);
  EXPECT_TRUE(target.saveConfig(folder.file("t.yml")));
  RingTarget other;
  EXPECT_TRUE(load(other, folder.file("t.yml")).result);
  EXPECT_EQ(other.config().rows, 2);
  EXPECT_EQ(other.config().ratio_solid, 0.25F);
}

TEST(RingTargetSaveConfig, ThrowsForAnotherEnding) {
  EXPECT_THROW(RingTarget().saveConfig("t.ini"), std::system_error);
}

/// The two detections, which begin alike.
struct Entry {
  const char* name;
  bool (RingTarget::*detect)(const cv::Mat&, RingTarget::Points&, RingTarget::Points&, const cv::Mat&);
  const char* operation;
};

class RingTargetEntry : public testing::TestWithParam<Entry> {
 protected:
  bool run(RingTarget& target, const cv::Mat& image, const cv::Mat& mask = {}) {
    const ConsoleCapture console;
    const bool found = (target.*GetParam().detect)(image, points_, unidentified_, mask);
    err_ = console.err();
    return found;
  }

  void expectAssertion(const cv::Mat& mask, const std::string& text) {
    RingTarget target;
    try {
      run(target, cv::Mat::zeros(20, 20, CV_8UC1), mask);
      FAIL() << "no exception";
    } catch (const cv::Exception& exception) {
      EXPECT_EQ(exception.code, -215);
      EXPECT_EQ(exception.err, text);
      EXPECT_EQ(exception.func, GetParam().operation);
    }
  }

  RingTarget::Points points_{3};
  RingTarget::Points unidentified_{2};
  std::string err_;
};

TEST_P(RingTargetEntry, WithoutAConfigurationThereIsNoDetector) {
  RingTarget target;
  EXPECT_FALSE(run(target, cv::Mat::zeros(20, 20, CV_8UC1)));
  EXPECT_EQ(err_, "[RingTarget::detect] Error: ellipse detector not initialized.\n");
  EXPECT_THAT(points_, IsEmpty());
  EXPECT_THAT(unidentified_, IsEmpty());
}

TEST_P(RingTargetEntry, AnImageOfAnotherTypeIsRefused) {
  RingTarget target;
  for (const int type : {CV_8UC3, CV_16UC1, CV_32FC1}) {
    EXPECT_FALSE(run(target, cv::Mat::zeros(20, 20, type)));
    EXPECT_EQ(err_, "[RingTarget::detect] Error: input image wrong type.\n") << "before the missing detector";
  }
}

TEST_P(RingTargetEntry, AMaskOfAnotherTypeRaisesTheAssertion) {
  expectAssertion(cv::Mat::zeros(20, 20, CV_8UC3), "mask.type() == CV_8UC1");
}

TEST_P(RingTargetEntry, AMaskOfAnotherSizeRaisesTheAssertion) {
  expectAssertion(cv::Mat::zeros(20, 21, CV_8UC1), "mask.size() == image.size()");
}

// The type of a mask first, then its size, and both before the image and the detector.
TEST_P(RingTargetEntry, TheMaskIsLookedAtFirst) {
  expectAssertion(cv::Mat::zeros(20, 21, CV_8UC3), "mask.type() == CV_8UC1");
  RingTarget target;
  EXPECT_THROW(run(target, cv::Mat::zeros(20, 20, CV_16UC1), cv::Mat::zeros(20, 21, CV_8UC1)), cv::Exception);
  EXPECT_THAT(points_, IsEmpty()) << "the lists are cleared before that";
  EXPECT_THAT(unidentified_, IsEmpty());
}

TEST_P(RingTargetEntry, AnEmptyImageLeavesAsTheLibrarysException) {
  RingTarget target;
  load(target, kSmallBoard);
  EXPECT_THROW(run(target, cv::Mat()), cv::Exception);
}

INSTANTIATE_TEST_SUITE_P(Both, RingTargetEntry,
                         testing::Values(Entry{"Detect", &RingTarget::detect, "kestrune::RingTarget::detect"},
                                         Entry{"Detectframework", &RingTarget::detectframework,
                                               "kestrune::RingTarget::detectframework"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(RingTargetDraw, BeforeAnyDetectionItIsTheScaledCopyAlone) {
  RingTarget target;
  cv::Mat dst;
  target.draw(cv::Mat(10, 20, CV_8UC1, cv::Scalar(77)), dst, 2.0);
  EXPECT_EQ(cv::norm(dst, cv::Mat(20, 40, CV_8UC3, cv::Scalar::all(77)), cv::NORM_INF), 0.0);
}

}  // namespace
