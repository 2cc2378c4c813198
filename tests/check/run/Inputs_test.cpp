#include "check/run/Inputs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "input/CalibrationReader.h"
#include "polarline/errors.h"
#include "support/MemoryRun.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

struct InputsOf : ::testing::Test {
  TempFolder folder;
  std::vector<Warning> warnings;

  template <typename Read>
  static std::string refusal(const Read& read) {
    try {
      read();
    } catch (const InputError& error) {
      return error.what();
    }
    return "";
  }
};

using InputsPolar = InputsOf;

TEST_F(InputsPolar, TakesTheKeysOfTheCommandLast) {
  const std::string path = folder.write("polar.txt", "type: 1\nf_scale: 2\nCal_ID_DIS: [[1,2]]");
  const PolarConfig config = readPolar(path, {"f_scale=0.5", "Cal_ID_DIS=[[3,4],[5,6]]"}, warnings).config;
  EXPECT_EQ(config.type, 1);
  EXPECT_EQ(config.f_scale, 0.5F);
  ASSERT_EQ(config.Cal_ID_DIS.size(), 2U);
  EXPECT_EQ(config.Cal_ID_DIS[1][0], 5);
  EXPECT_TRUE(warnings.empty());
}

TEST_F(InputsPolar, WarnsOfAKeyThatNothingReads) {
  readPolar(folder.write("polar.txt", "type: 1\nf_scal: 2\n"), {}, warnings);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "unknown_key");
  EXPECT_THAT(warnings[0].text, HasSubstr("'f_scal'; did you mean f_scale"));
}

TEST_F(InputsPolar, NamesAMarkThatCannotBeSeen) {
  const std::string path = folder.write("polar.txt", "\xEF\xBB\xBFtype: 1\n");
  const PolarInput input = readPolar(path, {}, warnings);
  EXPECT_FALSE(input.keys.contains("type"));
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "byte_order_mark");
  EXPECT_EQ(warnings[0].text,
            path + ", line 1: a byte order mark stands before the key 'type', so that nothing reads it");
}

TEST_F(InputsPolar, WarnsOfAValueThatIsNone) {
  const std::string path = folder.write("polar.txt", "type: 0\n# ours\ntype: zz\nf_scale: 1\n");
  EXPECT_EQ(readPolar(path, {}, warnings).config.type, 0);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "bad_value");
  EXPECT_EQ(warnings[0].text, path + ", line 3: type: 'zz' was found; a whole number was wanted");
  EXPECT_FALSE(warnings[0].advice.empty());
  warnings.clear();
  EXPECT_EQ(readPolar(path, {"type=1"}, warnings).config.type, 1);
  EXPECT_TRUE(warnings.empty());
}

TEST_F(InputsPolar, WarnsOfALineThatIsNone) {
  const std::string path = folder.write("polar.txt", "# a\n  # b\n \t\r\ntype: 1\r\n\nsavepo");
  readPolar(path, {}, warnings);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "bad_line");
  EXPECT_EQ(warnings[0].text, path + ", line 6: 'savepo' was found; 'key: value' was wanted");
}

TEST_F(InputsPolar, RefusesASettingWithoutAValueOfItsKey) {
  const std::string path = folder.write("polar.txt", "type: 1\n");
  const auto with = [&](const char* setting) { return refusal([&] { readPolar(path, {setting}, warnings); }); };
  EXPECT_EQ(with("type=zz"), "setting 'type=zz': 'zz' was found; a whole number was wanted");
  EXPECT_EQ(with("type="), "setting 'type=': '' was found; a whole number was wanted");
  EXPECT_EQ(with("TriPoint1_GT=[a,b,c]"),
            "setting 'TriPoint1_GT=[a,b,c]': '[a,b,c]' was found; a list of three numbers such as [1,2,3], without "
            "blanks, was "
            "wanted");
}

TEST_F(InputsPolar, RefusesWhatIsNoSetting) {
  const std::string path = folder.write("polar.txt", "type: 1\n");
  const auto with = [&](const char* setting) { return refusal([&] { readPolar(path, {setting}, warnings); }); };
  EXPECT_THAT(with("f_scale"), HasSubstr("setting 'f_scale': KEY=VALUE was wanted"));
  EXPECT_THAT(with("f_scal=1"), HasSubstr("no key 'f_scal'; did you mean f_scale"));
  EXPECT_THAT(with("f_scale=1\ntype: 2"), HasSubstr("KEY=VALUE was wanted"));
  EXPECT_EQ(with("f_scale=1"), "");
}

TEST_F(InputsPolar, RefusesAFileThatIsNone) {
  EXPECT_THAT(refusal([&] { readPolar(folder.write("polar.txt", "no lines of keys"), {}, warnings); }),
              HasSubstr("has no line 'key: value'"));
  EXPECT_THAT(refusal([&] { readPolar(folder.file("none"), {}, warnings); }), HasSubstr("cannot be read"));
  EXPECT_THAT(
      refusal([&] { readPolar(folder.write("polar.txt", "type: 1\nTriPoint1_GT: [1,2]\n"), {}, warnings); }),
      HasSubstr("polar.txt, line 2: TriPoint1_GT: '[1,2]' was found; a list of three numbers such as [1,2,3], without "
                "blanks, was wanted"));
}

TEST_F(InputsPolar, ShowsEverySettingAsJson) {
  const auto settings =
      settingsOf(readPolar(folder.write("polar.txt", "f_scale: 0.1\neccentricity: 1\n"), {}, warnings).config);
  const auto valueOf = [&](const std::string& key) { return std::ranges::find(settings, key, &Setting::key)->json; };
  EXPECT_EQ(valueOf("f_scale"), "0.1");
  EXPECT_EQ(valueOf("eccentricity"), "true");
  EXPECT_EQ(valueOf("Cal_ID_DIS"), "[]");
  EXPECT_GT(settings.size(), 40U);
}

using InputsCalibration = InputsOf;

TEST_F(InputsCalibration, IsTheOneThatTheExportsRead) {
  const RenderedSet& set = MemoryRun::twoPairs();
  const StereoCalibParams calib = readCalibration(set.file("calib.json"), warnings);
  const ExportedCalibParams exported = set.calibration();
  EXPECT_EQ(calib.left.intrinsics, exported.left.intrinsics);
  EXPECT_EQ(calib.right.intrinsics, exported.right.intrinsics);
  EXPECT_EQ(calib.extrinsics, exported.extrinsics);
}

TEST_F(InputsCalibration, WritesNothingBesideABinaryFile) {
  std::filesystem::copy_file(MemoryRun::twoPairs().file("calib.bin"), folder.file("calib.bin"));
  EXPECT_GT(readCalibration(folder.file("calib.bin"), warnings).left.width, 0U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST_F(InputsCalibration, IsRefusedInWords) {
  const auto of = [&](const std::string& name, const std::string& content) {
    return refusal([&] { readCalibration(folder.write(name, content), warnings); });
  };
  EXPECT_THAT(of("calib.txt", "x"), HasSubstr("ends in neither 'json' nor 'bin'"));
  EXPECT_THAT(of("calib.json", "{"), HasSubstr(folder.file("calib.json")));
  EXPECT_THAT(of("calib.json", "{}"), HasSubstr("no pair of cameras"));
  const std::string whole = MemoryRun::twoPairs().text("calib.bin");
  EXPECT_THAT(of("calib.bin", whole.substr(0, whole.size() / 2)), HasSubstr(folder.file("calib.bin") + ": "));
  std::string damaged = whole;
  damaged[whole.size() / 2] = static_cast<char>(damaged[whole.size() / 2] ^ 1);
  EXPECT_THAT(of("calib.bin", damaged), HasSubstr("check sum"));
}

using InputsRectified = InputsOf;

TEST_F(InputsRectified, AreFiveNumbers) {
  const RectifiedParams read = readRectified(folder.write("r.txt", "# ours\n\n100.5, -60,64,50.25,1e-1\n"));
  EXPECT_EQ(read.focal, 100.5);
  EXPECT_EQ(read.baseline, -60.0);
  EXPECT_EQ(read.cx, 64.0);
  EXPECT_EQ(read.cy, 50.25);
  EXPECT_EQ(read.disparity_offset, 0.1);
  for (const char* content : {"", "1,2,3,4", "1,2,3,4,x", "1 2 3 4 5"})
    EXPECT_THAT(refusal([&] { readRectified(folder.write("r.txt", content)); }), HasSubstr("five numbers by commas"));
}

using InputsBoard = InputsOf;

TEST_F(InputsBoard, TruthIsThreeNumbersALine) {
  const auto points = readBoardTruth(folder.write("b.txt", "0 0 0\n1.5 -2 3\n"));
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points[1], cv::Point3f(1.5F, -2.0F, 3.0F));
}

TEST_F(InputsBoard, TruthIsRefusedWithTheLine) {
  const std::string path = folder.file("b.txt");
  EXPECT_THAT(refusal([&] { readBoardTruth(folder.write("b.txt", "0 0 0\nx y z\n")); }),
              HasSubstr(path + ", line 2: 'x y z' was found; three numbers x y z were wanted"));
  EXPECT_THAT(refusal([&] { readBoardTruth(folder.write("b.txt", "0 0 0\n1 2")); }), HasSubstr("line 2: '1 2'"));
}

TEST_F(InputsBoard, MissingTruthIsWarnedOfWhereItIsWanted) {
  BoardInfo board;
  board.rows = 7;
  board.cols = 9;
  PolarConfig config;
  config.discalswitch = config.spaceRms_switch = false;
  warnOfBoardTruth("", config, board, warnings);
  EXPECT_TRUE(warnings.empty());
  config.spaceRms_switch = true;
  warnOfBoardTruth("", config, board, warnings);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "no_board_truth");
  board.points = 62;
  warnOfBoardTruth("b.txt", config, board, warnings);
  ASSERT_EQ(warnings.size(), 2U);
  EXPECT_EQ(warnings[1].code, "board_truth_short");
  EXPECT_EQ(warnings[1].text, "b.txt: 62 positions; the board has 63 dots");
  warnings.clear();
  board.points = 31;
  warnOfBoardTruth("b.txt", config, board, warnings);
  board.points = 30;
  warnOfBoardTruth("b.txt", config, board, warnings);
  ASSERT_EQ(warnings.size(), 2U);
  EXPECT_EQ(warnings[0].text, "b.txt: 31 positions; the board has 63 dots");
  EXPECT_EQ(warnings[1].text,
            "b.txt: 30 positions; the board has 63 dots, and its fit wants 31: figures of it have no value");
  board.points = 63;
  warnOfBoardTruth("b.txt", config, board, warnings);
  EXPECT_EQ(warnings.size(), 2U);
}

/// A board of 2 x 3 dots, and what each of three files says of it.
struct Steps {
  float across, down;  ///< Of the true positions.
  float pattern_step;  ///< Of the polar configuration.
  std::vector<const char*> differences;
};

class InputsSteps : public testing::TestWithParam<Steps> {};

TEST_P(InputsSteps, AreComparedWithThoseOfTheTarget) {
  const Steps& steps = GetParam();
  BoardInfo board;
  board.rows = 2;
  board.cols = 3;
  board.step = 20.0;
  board.step_y = 30.0;
  BoardGroundTruth truth;
  for (int id = 0; id < 6; ++id)
    truth.emplace_back(static_cast<float>(id % 3) * steps.across, static_cast<float>(id / 3) * steps.down, 0.0F);
  PolarConfig config;
  config.pattern_step = steps.pattern_step;
  config.foursixmethod_swithch = config.allpoints_calc_switch = 1;
  Set set;
  set.polar = "p.txt";
  set.board = "b.txt";
  std::vector<Warning> warnings;
  warnOfSteps(set, config, board, truth, warnings);
  std::vector<std::string> texts;
  for (const Warning& warning : warnings) texts.push_back(warning.text);
  EXPECT_EQ(texts, std::vector<std::string>(steps.differences.begin(), steps.differences.end()));
}

INSTANTIATE_TEST_SUITE_P(
    All, InputsSteps,
    testing::Values(
        Steps{20.0F, 30.0F, 20.0F, {}}, Steps{20.0F, 30.0F, 30.0F, {}}, Steps{20.1F, 29.8F, 20.1F, {}},
        Steps{20.0F, 30.0F, 25.0F, {"p.txt: pattern_step is 25; the target's step is 20"}},
        Steps{20.3F, 30.0F, 20.0F, {"b.txt: neighbours in a row are apart by 20.3; the target's step is 20"}},
        Steps{20.0F, 20.0F, 20.0F, {"b.txt: neighbours in a column are apart by 20; the target's step_y is 30"}}));

TEST_F(InputsBoard, WithoutTheSpacingOfAllPointsItsStepIsNotAsked) {
  BoardInfo board;
  board.rows = board.cols = 2;
  board.step = board.step_y = 20.0;
  PolarConfig config;
  config.foursixmethod_swithch = 1;
  warnOfSteps({}, config, board, {}, warnings);
  EXPECT_TRUE(warnings.empty());
}

TEST_F(InputsBoard, IsThatOfTheTarget) {
  const BoardInfo board = readBoardInfo(MemoryRun::twoPairs().file("target.ini"));
  EXPECT_EQ(board.rows, 7);
  EXPECT_EQ(board.cols, 9);
  EXPECT_THAT(refusal([&] { readBoardInfo(folder.write("target.json", "{\"cols\": [")); }),
              HasSubstr(folder.file("target.json")));
}

TEST_F(InputsCalibration, CamerasAreTold) {
  StereoCalibParams calib;
  calib.left.intrinsics = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  calib.extrinsics = {1, 2, 3, 4, 5, 6};
  const Cameras cameras = camerasOf(2, calib);
  EXPECT_EQ(cameras.model, "fisheye");
  EXPECT_EQ(cameras.left.fy, 2.0);
  EXPECT_THAT(cameras.left.coefficients, ::testing::ElementsAre(5, 6, 7, 8, 9, 10, 11, 12));
  EXPECT_THAT(cameras.extrinsics, ::testing::ElementsAre(1, 2, 3, 4, 5, 6));
  for (const int type : {-1, 4, 7})
    EXPECT_EQ(refusal([&] { camerasOf(type, calib); }),
              "type of the polar configuration: " + std::to_string(type) + " was found; 0, 1, 2 or 3 was wanted");
  RectifiedParams rectified;
  rectified.focal = 7;
  rectified.cx = 8;
  EXPECT_EQ(camerasOf(rectified).model, "rectified");
  EXPECT_EQ(camerasOf(rectified).right.fx, 7.0);
  EXPECT_TRUE(camerasOf(rectified).extrinsics.empty());
}

}  // namespace
}  // namespace polarline
