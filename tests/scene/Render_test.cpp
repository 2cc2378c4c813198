#include "tools/scene/Render.h"

#include <gtest/gtest.h>

#include "tools/scene/Presets.h"

namespace {

double difference(const cv::Mat& a, const cv::Mat& b) { return cv::norm(a, b, cv::NORM_INF); }

TEST(Render, SameSeedSameBytesOtherSeedOtherBytes) {
  const auto first = scene::renderPair(*scene::makePreset("ring_320"), 0);
  const auto again = scene::renderPair(*scene::makePreset("ring_320"), 0);
  const auto other = scene::renderPair(*scene::makePreset("ring_320", {.pairs = 1, .seed = 99, .read_noise = {}}), 0);
  EXPECT_EQ(difference(first.left, again.left), 0.0);
  EXPECT_EQ(difference(first.right, again.right), 0.0);
  EXPECT_GT(difference(first.left, other.left), 0.0);
}

TEST(Render, WithoutNoiseTheSeedDoesNotMatter) {
  const auto first = scene::renderPair(*scene::makePreset("ring_320", {.pairs = 1, .seed = 1, .read_noise = 0.0}), 0);
  const auto other = scene::renderPair(*scene::makePreset("ring_320", {.pairs = 1, .seed = 2, .read_noise = 0.0}), 0);
  EXPECT_EQ(difference(first.left, other.left), 0.0);
}

TEST(Render, EachImageHasNoiseOfItsOwn) {
  // The same camera twice, in the same place: what differs is noise.
  scene::Scene scene = *scene::makePreset("rectified_1280", {.pairs = 1, .seed = {}, .read_noise = {}});
  scene.rig.left.width = scene.rig.left.height = 64;
  scene.rig.right = scene.rig.left;
  scene.rig.right_from_left_translation = {};
  scene.left_from_board.push_back(scene.left_from_board[0]);
  const auto pairs = scene::renderAll(scene);
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_GT(difference(pairs[0].left, pairs[0].right), 0.0);
  EXPECT_GT(difference(pairs[0].left, pairs[1].left), 0.0);
}

/// Of three poses whose first comes twice in a row and once more behind another, and of another noise each time.
TEST(Render, RepeatedPosesAreAsIfEachWereRenderedForItself) {
  scene::Scene scene = *scene::makePreset("rectified_1280", {.pairs = 2, .seed = {}, .read_noise = {}});
  scene.rig.left.width = scene.rig.left.height = scene.rig.right.width = scene.rig.right.height = 64;
  const scene::Pose first = scene.left_from_board[0];
  const scene::Pose second = scene.left_from_board[1];
  scene.left_from_board = {first, first, second, first};
  const auto pairs = scene::renderAll(scene);
  ASSERT_EQ(pairs.size(), 4U);
  for (std::size_t index = 0; index < pairs.size(); ++index) {
    const auto alone = scene::renderPair(scene, index);
    EXPECT_EQ(difference(pairs[index].left, alone.left), 0.0) << index;
    EXPECT_EQ(difference(pairs[index].right, alone.right), 0.0) << index;
  }
  EXPECT_GT(difference(pairs[0].left, pairs[1].left), 0.0);
  EXPECT_GT(difference(pairs[0].left, pairs[2].left), difference(pairs[0].left, pairs[1].left));
}

TEST(Render, TenBitsFillTheirRange) {
  scene::Scene scene = *scene::makePreset("ring_320", {.pairs = 1, .seed = {}, .read_noise = {}});
  scene.optics.bits = 10;
  const cv::Mat image = scene::renderPair(scene, 0).left;
  double low = 0, high = 0;
  cv::minMaxLoc(image, &low, &high);
  EXPECT_EQ(image.type(), CV_16UC1);
  EXPECT_GT(high, 700.0);
  EXPECT_LE(high, 1023.0);
  EXPECT_LT(low, 130.0);
}

}  // namespace
