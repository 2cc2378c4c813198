#include "input/JsonCalibration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <opencv2/core.hpp>

#include "support/CommaLocale.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

using nlohmann::json;
using testing::Each;
using testing::ElementsAre;

const std::string kNoPair = "not support the Json object, please input [IR/DEPTH/RGB/COLOR/IR_L/IR_R]\n";
constexpr std::array<const char*, 12> kMembers = {"Fx", "Fy", "Cx", "Cy", "K1", "K2",
                                                  "K3", "K4", "K5", "K6", "P1", "P2"};

json camera(double first) {
  json object;
  for (std::size_t k = 0; k < kMembers.size(); ++k) object[kMembers.at(k)] = first + static_cast<double>(k) / 8;
  return object;
}

json posed(double first, double pose) {
  json object = camera(first);
  object["Rotate"] = {{"RX", pose + 0.5}, {"RY", pose + 1.5}, {"RZ", pose + 2.5}};
  object["Translate"] = {{"TX", pose + 3.5}, {"TY", pose + 4.5}, {"TZ", pose + 5.5}};
  return object;
}

void addDepthPose(json& document, double pose) {
  document["Depth2RGB_Rotate"] = {{"RX", pose + 0.5}, {"RY", pose + 1.5}, {"RZ", pose + 2.5}};
  document["Depth2RGB_Trans"] = {{"TX", pose + 3.5}, {"TY", pose + 4.5}, {"TZ", pose + 5.5}};
}

struct Reading {
  std::int32_t status = -99;
  std::string printed;
  std::string error = "old";
  StereoCalibParams calib;
};

Reading readPath(const std::string& path, const StereoCalibParams& before = {}) {
  Reading reading;
  reading.calib = before;
  const ConsoleCapture capture;
  reading.status = readJsonCalibration(path, reading.calib, reading.error);
  reading.printed = capture.out();
  return reading;
}

Reading read(const json& document) {
  const TempFolder folder;
  return readPath(folder.write("calib.json", document.dump(1)));
}

/// Every combination of these six members; the value of Fx tells the camera.
constexpr std::array<const char*, 6> kCameras = {"DEPTH", "RGB", "COLOR", "IR_L", "IR_R", "IR"};
enum Member : unsigned { kDepth = 1, kRgb = 2, kColor = 4, kIrL = 8, kIrR = 16 };

struct Pair {
  unsigned members;
  double left;
  double right;
};

constexpr std::array<Pair, 4> kPreference = {{{kDepth | kRgb, 100, 200},
                                              {kDepth | kColor, 100, 300},
                                              {kIrL | kIrR | kRgb, 400, 500},
                                              {kIrL | kIrR | kColor, 400, 500}}};

class JsonCalibrationMembers : public testing::TestWithParam<unsigned> {};

TEST_P(JsonCalibrationMembers, SelectsByPreference) {
  const unsigned members = GetParam();
  json document = {{"Other", 1}};
  for (std::size_t k = 0; k < kCameras.size(); ++k) {
    if ((members >> k & 1U) != 0) document[kCameras.at(k)] = posed(100.0 * static_cast<double>(k + 1), 0);
  }
  const Reading reading = read(document);
  const auto* pair = std::find_if(kPreference.begin(), kPreference.end(),
                                  [&](const Pair& entry) { return (members & entry.members) == entry.members; });
  if (pair == kPreference.end()) {
    EXPECT_EQ(reading.status, -4);
    EXPECT_EQ(reading.printed, kNoPair);
    EXPECT_EQ(reading.calib.left.intrinsics[0], 0.0);
  } else {
    EXPECT_EQ(reading.status, 0);
    EXPECT_EQ(reading.printed, "");
    EXPECT_EQ(reading.calib.left.intrinsics[0], pair->left);
    EXPECT_EQ(reading.calib.right.intrinsics[0], pair->right);
  }
  EXPECT_EQ(reading.error, "old");
}

INSTANTIATE_TEST_SUITE_P(AllMembers, JsonCalibrationMembers, testing::Range(0U, 64U));

TEST(JsonCalibration, DepthAndColourGoBeforeTheInfraredPair) {
  const Reading reading =
      read({{"DEPTH", camera(100)}, {"RGB", camera(200)}, {"IR_L", camera(400)}, {"IR_R", posed(500, 10)}});
  EXPECT_EQ(reading.calib.left.intrinsics[0], 100.0);
  EXPECT_EQ(reading.calib.right.intrinsics[0], 200.0);
  EXPECT_THAT(reading.calib.extrinsics, ElementsAre(10.5, 11.5, 12.5, 13.5, 14.5, 15.5))
      << "the pose is that of the infra-red pair all the same";
}

TEST(JsonCalibration, ReadsTwelveMembersInOrder) {
  const Reading reading = read({{"DEPTH", camera(1)}, {"COLOR", camera(-7)}});
  EXPECT_THAT(reading.calib.left.intrinsics,
              ElementsAre(1, 1.125, 1.25, 1.375, 1.5, 1.625, 1.75, 1.875, 2, 2.125, 2.25, 2.375));
  EXPECT_EQ(reading.calib.right.intrinsics[11], -7.0 + 11.0 / 8);
}

TEST(JsonCalibration, AMissingMemberIsZeroWithoutAMessage) {
  json left = camera(1);
  left.erase("K3");
  StereoCalibParams before;
  before.left.intrinsics.fill(9.0);
  const TempFolder folder;
  const Reading reading =
      readPath(folder.write("c.json", json({{"DEPTH", left}, {"RGB", json::object()}}).dump()), before);
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.printed, "");
  EXPECT_EQ(reading.calib.left.intrinsics[6], 0.0);
  EXPECT_EQ(reading.calib.left.intrinsics[7], 1.875);
  EXPECT_THAT(reading.calib.right.intrinsics, Each(0.0));
}

TEST(JsonCalibration, WholeNumbersAndSmallOnesKeepTheirValue) {
  json left = camera(1);
  left["Fx"] = 1150;
  left["P1"] = -1.8000000272877514e-10;
  const Reading reading = read({{"DEPTH", left}, {"RGB", camera(2)}});
  EXPECT_EQ(reading.calib.left.intrinsics[0], 1150.0);
  EXPECT_EQ(reading.calib.left.intrinsics[10], -1.8000000272877514e-10);
}

TEST(JsonCalibration, SizesTablesAndPoseStayWhereTheDocumentHasNone) {
  StereoCalibParams before;
  before.left.height = 3;
  before.left.poly_x[0] = 4.0F;
  before.extrinsics[2] = 5.0;
  const TempFolder folder;
  const Reading reading =
      readPath(folder.write("c.json", json({{"DEPTH", camera(1)}, {"RGB", camera(2)}}).dump()), before);
  EXPECT_EQ(reading.calib.left.height, 3U);
  EXPECT_EQ(reading.calib.left.poly_x[0], 4.0F);
  EXPECT_EQ(reading.calib.extrinsics[2], 5.0);
}

TEST(JsonCalibration, TheDepthPoseNeedsBothMembers) {
  json document = {{"DEPTH", camera(1)}, {"RGB", camera(2)}};
  addDepthPose(document, 20);
  EXPECT_THAT(read(document).calib.extrinsics, ElementsAre(20.5, 21.5, 22.5, 23.5, 24.5, 25.5));
  json no_rotation = document;
  no_rotation.erase("Depth2RGB_Rotate");
  EXPECT_THAT(read(no_rotation).calib.extrinsics, Each(0.0));
  document.erase("Depth2RGB_Trans");
  EXPECT_THAT(read(document).calib.extrinsics, Each(0.0));
}

TEST(JsonCalibration, TheInfraredPoseComesFromTheRightCamera) {
  const json document = {{"IR_L", posed(400, 30)}, {"IR_R", posed(500, 10)}, {"COLOR", posed(300, 40)}};
  EXPECT_THAT(read(document).calib.extrinsics, ElementsAre(10.5, 11.5, 12.5, 13.5, 14.5, 15.5));
}

TEST(JsonCalibration, AnInfraredPairWithoutPoseGivesZeros) {
  StereoCalibParams before;
  before.extrinsics.fill(9.0);
  const TempFolder folder;
  const json document = {{"IR_L", camera(400)}, {"IR_R", camera(500)}, {"RGB", camera(200)}};
  EXPECT_THAT(readPath(folder.write("c.json", document.dump()), before).calib.extrinsics, Each(0.0));
}

TEST(JsonCalibration, BothPosesTogetherGiveZeros) {
  json document = {{"IR_L", camera(400)}, {"IR_R", posed(500, 10)}, {"RGB", camera(200)}};
  addDepthPose(document, 20);
  const Reading reading = read(document);
  EXPECT_EQ(reading.status, 0);
  EXPECT_THAT(reading.calib.extrinsics, Each(0.0));
}

TEST(JsonCalibration, AFileThatDoesNotOpenSetsTheErrorText) {
  const TempFolder folder;
  const Reading reading = readPath(folder.file("gone.json"));
  EXPECT_EQ(reading.status, -4);
  EXPECT_EQ(reading.printed, "cannot open the calib_result file\n");
  EXPECT_EQ(reading.error, "Fail to read calib result file");
}

TEST(JsonCalibration, OpensByEitherSeparator) {
  const TempFolder folder;
  folder.write("c.json", json({{"DEPTH", camera(1)}, {"RGB", camera(2)}}).dump());
  EXPECT_EQ(readPath(folder.path().string() + "\\c.json").status, 0);
}

TEST(JsonCalibration, MalformedDocumentsRaiseTheExceptionOfOpenCV) {
  const TempFolder folder;
  for (const char* text : {"{ \"DEPTH\": { \"Fx\" 1 } }", "[1, 2", "{ \"DEPTH\": {", "no document"}) {
    EXPECT_THROW(readPath(folder.write("c.json", text)), cv::Exception) << text;
  }
  EXPECT_THROW(read({{"DEPTH", 5}, {"RGB", 6}}), cv::Exception) << "a camera that is no object";
}

TEST(JsonCalibration, DocumentOfNothingButBracketsIsRefused) {
  const TempFolder folder;
  EXPECT_THROW(readPath(folder.write("c.json", R"({"DEPTH": )" + std::string(200000, '['))), cv::Exception);
}

TEST(JsonCalibration, DoesNotFollowTheProcessLocale) {
  const CommaLocale comma;
  const TempFolder folder;
  const std::string text = R"({ "DEPTH": { "Fx": 1150.25, "K1": -0.5 }, "RGB": { "Fx": 2 } })";
  const Reading reading = readPath(folder.write("c.json", text));
  EXPECT_EQ(reading.calib.left.intrinsics[0], 1150.25);
  EXPECT_EQ(reading.calib.left.intrinsics[4], -0.5);
}

}  // namespace
