#include "tools/scene/WriteScene.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>

#include "support/TempFolder.h"
#include "tools/scene/CalibrationJson.h"
#include "tools/scene/CalibrationNumbers.h"
#include "tools/scene/FramePoints.h"
#include "tools/scene/PolarText.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"
#include "tools/scene/Truth.h"

namespace {

TEST(WriteScene, FolderIsComplete) {
  const TempFolder folder;
  const scene::Scene scene = *scene::makePreset("ring_320");
  scene::writeScene(scene, folder.file("a/b"));
  for (const char* name : {"left_0.png", "right_0.png", "left_1.png", "right_1.png", "calib.bin", "calib.json",
                           "target.ini", "target.json", "target.yml", "polar.txt", "board_gt.txt", "truth.json"}) {
    EXPECT_TRUE(folder.has(std::string("a/b/") + name)) << name;
  }
  EXPECT_EQ(folder.read("a/b/list.txt"), "#L R\nleft_0.png right_0.png\nleft_1.png right_1.png\n");
  EXPECT_EQ(folder.read("a/b/board_gt.txt").substr(0, 22), "0 0 0\n17.5 0 0\n35 0 0\n");
  const cv::Mat read = cv::imread(folder.file("a/b/right_1.png"), cv::IMREAD_UNCHANGED);
  EXPECT_EQ(cv::norm(read, scene::renderPair(scene, 1).right, cv::NORM_INF), 0.0);
  EXPECT_FALSE(folder.has("a/b/rectified.txt"));
}

TEST(WriteScene, TruthIsInTheDocument) {
  const TempFolder folder;
  const scene::Scene scene = *scene::makePreset("ring_320", {.pairs = 1, .seed = 4, .read_noise = {}});
  scene::writeScene(scene, folder.path().string());
  const auto json = nlohmann::json::parse(folder.read("truth.json"));
  EXPECT_EQ(json["seed"], 4);
  ASSERT_EQ(json["pairs"].size(), 1U);
  const auto& dots = json["pairs"][0]["dots"];
  ASSERT_EQ(dots.size(), 15U * 17U);
  const scene::DotTruth last = scene::pairTruth(scene, 0).dots.back();
  EXPECT_EQ(dots.back()[0], 254);
  EXPECT_EQ(dots.back()[6][0].get<double>(), last.ellipse_left.centre.x);
}

TEST(WriteScene, AFolderThatCannotBeMadeThrows) {
  EXPECT_THROW(scene::writeScene(*scene::makePreset("ring_320"), "/proc/none"), std::runtime_error);
}

TEST(WriteSceneCalibrationJson, ReadsBackThroughFileStorage) {
  const scene::StereoRig rig = scene::brownRig({640, 512, 60});
  const cv::FileStorage storage(scene::calibrationJson(rig), cv::FileStorage::READ | cv::FileStorage::MEMORY);
  EXPECT_EQ(static_cast<double>(storage["IR_L"]["Fx"]), rig.left.fx);
  EXPECT_EQ(static_cast<double>(storage["IR_R"]["P1"]), rig.right.lens[6]);
  EXPECT_EQ(static_cast<double>(storage["IR_R"]["Rotate"]["RZ"]), rig.right_from_left_angles.rz);
  EXPECT_EQ(static_cast<double>(storage["IR_R"]["Translate"]["TX"]), -60.0);
  EXPECT_FALSE(storage["RGB"].empty());
}

TEST(WriteSceneCalibrationNumbers, OrderAndPadding) {
  const scene::StereoRig rig = scene::polyRig({640, 400, 60});
  const scene::CalibrationNumbers numbers = scene::calibrationNumbers(rig);
  EXPECT_EQ(numbers.left.intrinsics[2], rig.left.cx);
  EXPECT_EQ(numbers.right.height, 400);
  EXPECT_EQ(numbers.left.poly_nx, 6);
  EXPECT_EQ(numbers.left.poly_x[239], rig.left.table.x[239]);
  EXPECT_EQ(numbers.left.poly_x[240], 0.0F);
  EXPECT_EQ(numbers.extrinsics[3], -60.0);
  const scene::StereoRig brown = scene::brownRig({640, 512, 60});
  EXPECT_EQ(scene::calibrationNumbers(brown).left.intrinsics[4], brown.left.lens[0]);
  EXPECT_EQ(scene::calibrationNumbers(brown).left.intrinsics[11], brown.left.lens[7]);
}

TEST(WriteSceneCalibrationNumbers, RectifiedPairTellsTheDepth) {
  scene::Scene scene = *scene::makePreset("rectified_1280");
  scene.rig.right.cx += 12.0;
  scene.given = scene.rig;
  const scene::RectifiedNumbers n = scene::rectifiedNumbers(scene.rig);
  const scene::DotTruth dot = scene::pairTruth(scene, 0).dots[77];
  EXPECT_NEAR(n.focal * n.baseline / (dot.pixel_right.x - dot.pixel_left.x + n.disparity_offset), dot.point_left.z,
              1e-8);
}

/// The board as one of the three forms tells it, through the storage reader.
void expectBoard(const std::string& text) {
  const cv::FileStorage storage(text, cv::FileStorage::READ | cv::FileStorage::MEMORY);
  const cv::FileNode board = storage["patterns"][0];
  EXPECT_EQ(static_cast<int>(board["rows"]), 29);
  EXPECT_EQ(static_cast<int>(board["board_type"]), 3);
  EXPECT_EQ(static_cast<float>(board["step"]), 20.0F);
  EXPECT_EQ(static_cast<float>(board["min_circularity"]), 0.8F);
  EXPECT_EQ(static_cast<int>(board["detection_id"][0]), 0);
}

TEST(WriteSceneTargetText, StorageFormsAreReadable) {
  const scene::Scene scene = *scene::makePreset("big_1280");
  expectBoard(scene::targetJson(scene));
  expectBoard(scene::targetYaml(scene));
}

TEST(WriteSceneTargetText, IniHasALineAKey) {
  const std::string big = scene::targetIni(*scene::makePreset("big_2448_search"));
  EXPECT_NE(big.find("\nid_method: 1\n"), std::string::npos);
  EXPECT_NE(big.find("\ndetection_id: [0]\n"), std::string::npos);
  const std::string ring = scene::targetIni(*scene::makePreset("ring_320"));
  EXPECT_NE(ring.find("\nstep: 17.5\n"), std::string::npos);
  EXPECT_EQ(ring.find("id_method"), std::string::npos);
}

TEST(WriteScenePolarText, PointsStandTwoInFromTheCorners) {
  const std::string text = scene::polarText(*scene::makePreset("ring_320"));  // 15 x 17, step 17.5
  EXPECT_NE(text.find("TriPoint1_ID: 36\n"), std::string::npos);
  EXPECT_NE(text.find("PolPoint4_ID: 218\n"), std::string::npos);
  EXPECT_NE(text.find("TriPoint4_GT: [245,210,0]\n"), std::string::npos);
  EXPECT_NE(text.find("frame_work: 0\n"), std::string::npos);
  EXPECT_EQ(text.find(": ["), text.find(": [35,35,0]"));
}

TEST(WriteScenePolarText, FrameRunHasItsPoints) {
  const scene::Scene scene = *scene::makePreset("frame_1280");
  const auto points = scene::framePoints(scene);
  ASSERT_EQ(points.size(), 8U);
  const scene::DotTruth dot = scene::pairTruth(scene, 0).dots[56];
  EXPECT_EQ(points[1].id, 2);
  EXPECT_EQ(points[1].point_board.x, 200.0);
  EXPECT_EQ(points[1].point_board.y, 40.0);
  EXPECT_NEAR(points[1].expected_right.y, dot.ellipse_right.centre.y, 0.051);
  const std::string text = scene::polarText(scene);
  EXPECT_NE(text.find("frame_work: 1\nFrame_ID: [1,2,3,4,5,6,7,8]\n"), std::string::npos);
  EXPECT_NE(text.find("Frame_3D: [[60,20,0],[200,40,0],"), std::string::npos);
}

}  // namespace
