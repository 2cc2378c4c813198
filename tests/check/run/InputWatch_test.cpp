#include "check/run/InputWatch.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "support/CopiedSet.h"
#include "support/DocumentCheck.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::string> codesOf(const Check& check) {
  std::vector<std::string> codes;
  for (const Warning& each : check.warnings) codes.push_back(each.code);
  return codes;
}

class InputWatchOfPresets : public ::testing::TestWithParam<const char*> {};

TEST_P(InputWatchOfPresets, SaysNothing) {
  const CopiedSet set(RenderedSet::of(GetParam()));
  const Check check = set.check();
  EXPECT_THAT(codesOf(check), IsEmpty());
  ASSERT_FALSE(check.pairs.empty());
  ASSERT_TRUE(check.pairs[0].quality);
}

INSTANTIATE_TEST_SUITE_P(Small, InputWatchOfPresets,
                         ::testing::Values("ring_320", "big_320", "ring_640_small", "fisheye_1280", "frame_1280"));

TEST(InputWatchQuality, IsThatOfThePictures) {
  const CopiedSet set(RenderedSet::of("ring_320"));
  const Check check = set.check();
  for (const PairCheck& pair : check.pairs) {
    ASSERT_TRUE(pair.quality);
    for (const PictureQuality& picture : {pair.quality->left, pair.quality->right}) {
      EXPECT_GT(picture.dots, 100U);
      const double blur = set.rendered.scene().optics.blur_sigma;
      EXPECT_NEAR(picture.edge_width, std::sqrt(blur * blur + 1.0 / 12.0), 0.05);
    }
  }
  const auto document = DocumentCheck::ofCheck().parsed(toJson(check));
  EXPECT_EQ(document["pairs"][0]["quality"]["coverage"], check.pairs[0].quality->coverage);
}

TEST(InputWatchQuality, IsOfTheWholePictureWhereNothingWasFound) {
  const CopiedSet set(RenderedSet::of("ring_320"));
  set.blank("left_0.png");
  const Check check = set.check();
  ASSERT_FALSE(check.pairs.empty());
  ASSERT_TRUE(check.pairs[0].quality);
  EXPECT_EQ(check.pairs[0].quality->left.dots, 0U);
  EXPECT_EQ(check.pairs[0].quality->left.contrast, 0.0);
  EXPECT_THAT(codesOf(check), ::testing::Contains("low_contrast"));
}

TEST(InputWatchOfASet, TellsExchangedColumnsOfTheList) {
  const CopiedSet set(RenderedSet::of("ring_320"));
  set.append("polar.txt", "\ndiscalsave: 0\n");
  set.write("list.txt", "#L R\nright_0.png left_0.png\n");
  EXPECT_THAT(codesOf(set.check()), ::testing::Contains("sides_exchanged"));
}

TEST(InputWatchOfASet, TellsABoardOfAnotherStep) {
  const CopiedSet set(RenderedSet::of("ring_320"));
  std::string larger;
  for (int id = 0; id < 255; ++id) larger += fmt::format("{} {} 0\n", id % 17 * 17.5 * 1.03, id / 17 * 17.5 * 1.03);
  set.write("board_gt.txt", larger);
  const Check check = set.check();
  ASSERT_THAT(codesOf(check), ElementsAre("steps_differ", "steps_differ", "scale_wrong"));
  EXPECT_THAT(check.warnings[2].text, HasSubstr("smaller than they are"));
}

TEST(InputWatchOfASet, TellsALimitThatNoiseExceeds) {
  const CopiedSet set(RenderedSet::of("ring_320"));
  CheckOptions options;
  options.limits = {"dy_means<=0.0001"};
  EXPECT_THAT(codesOf(set.check(options)), ElementsAre("noise_floor"));
}

TEST(InputWatchOfASet, TellsALimitOnWhatFisheyesMakeWorthless) {
  const CopiedSet set(RenderedSet::of("fisheye_1280"));
  CheckOptions options;
  options.limits = {"dis_rms<=1000"};
  EXPECT_THAT(codesOf(set.check(options)), ElementsAre("fisheye_raw_pair"));
}

TEST(InputWatchOfASet, TakesRectifiedPairsAndCrops) {
  const CopiedSet rectified(RenderedSet::of("rectified_1280"));
  const Check check = rectified.check();
  EXPECT_THAT(codesOf(check), IsEmpty());
  EXPECT_GT(check.pairs.at(0).quality->left.dots, 50U);

  const CopiedSet cropped(RenderedSet::of("ring_320"));
  cropped.append("polar.txt", "\ncrop: 1\ncropped_cols: 300\ncropped_rows: 240\n");
  const Check of_crop = cropped.check();
  ASSERT_FALSE(of_crop.pairs.empty());
  EXPECT_GT(of_crop.pairs[0].quality->left.dots, 100U);
  EXPECT_NEAR(of_crop.pairs[0].quality->left.edge_width, RenderedSet::of("ring_320").scene().optics.blur_sigma, 0.15);
}

}  // namespace
}  // namespace polarline
