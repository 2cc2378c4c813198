#include "check/run/InputWatch.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <opencv2/imgproc.hpp>

#include "support/CopiedSet.h"
#include "support/DocumentCheck.h"
#include "support/SmallScene.h"

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

/// A set that is spoilt in one way, in its scene or in its files.
struct Spoilt {
  const char* code;
  const char* preset;
  void (*scene)(scene::Scene&);
  void (*files)(const CopiedSet&);
};

void nothing(scene::Scene& /*scene*/) {}
void noFile(const CopiedSet& /*set*/) {}

/// Of so little noise that the board is found all the same.
void light(scene::Scene& scene, double paper, double ink) {
  scene.optics.paper = paper;
  scene.optics.ink = ink;
  scene.optics.surround = 0.5 * paper;
  scene.optics.read_noise = 0.3;
  scene.optics.shot_noise = 0.0;
}

void pictureAs(const CopiedSet& set, const std::string& name, const std::function<void(cv::Mat&)>& change) {
  cv::Mat picture = set.picture(name);
  change(picture);
  set.write(name, picture);
}

void repeatFirst(scene::Scene& scene, std::size_t pairs) {
  scene.left_from_board.assign(pairs, scene.left_from_board.at(0));
}

/// A board of few dots, which is found when it is small.
void fewDots(scene::Scene& scene, std::size_t pairs, double fill) {
  scene = small_scene::of(scene::brownRig({640, 512, 60.0}), scene::bigDotBoard(7, 9));
  scene.left_from_board = {scene::fitPose(scene.rig, scene.board, {3.0, -4.0, 2.0, fill})};
  repeatFirst(scene, pairs);
}

void hideAllFarFromMarkers(cv::Mat& left, const scene::Scene& scene) {
  const scene::PairTruth truth = scene::pairTruth(scene, 0);
  for (const scene::DotTruth& dot : truth.dots) {
    const int row = dot.id / scene.board.cols;
    const int column = dot.id % scene.board.cols;
    if (row < 3 || row > 11 || column < 3 || column > 13) hideDot(left, dot.ellipse_left);
  }
}

class InputWatchOfSpoiltSets : public ::testing::TestWithParam<Spoilt> {};

/// From the pictures on: the library looks for the dots itself.
TEST_P(InputWatchOfSpoiltSets, TellsWhatIsWrong) {
  scene::Scene scene = RenderedSet::of(GetParam().preset).scene();
  scene.left_from_board.resize(1);
  scene.optics.supersampling = 6;
  GetParam().scene(scene);
  const RenderedSet rendered(scene);
  const CopiedSet set(rendered);
  GetParam().files(set);
  const Check check = set.check();
  EXPECT_THAT(codesOf(check), ::testing::Contains(GetParam().code)) << check.status.text;
}

INSTANTIATE_TEST_SUITE_P(
    All, InputWatchOfSpoiltSets,
    ::testing::Values(
        Spoilt{"baseline_unit", "ring_320",
               [](scene::Scene& scene) {
                 auto& way = scene.given.right_from_left_translation;
                 way = 0.001 * way;
               },
               noFile},
        Spoilt{"board_mismatch", "ring_320", nothing,
               [](const CopiedSet& set) {
                 std::string stretched;
                 for (int id = 0; id < 255; ++id)
                   stretched += fmt::format("{} {} 0\n", id % 17 * 17.5, id / 17 * 17.5 * 1.2);
                 set.write("board_gt.txt", stretched);
               }},
        Spoilt{"saturated", "ring_320", [](scene::Scene& scene) { scene.optics.paper = 290.0; }, noFile},
        Spoilt{"too_dark", "ring_320", [](scene::Scene& scene) { light(scene, 34.0, 4.0); }, noFile},
        Spoilt{"low_contrast", "ring_320", [](scene::Scene& scene) { light(scene, 110.0, 90.0); }, noFile},
        Spoilt{"blurred", "ring_640_small", [](scene::Scene& scene) { scene.optics.blur_sigma = 2.2; }, noFile},
        Spoilt{"motion_blur", "ring_640_small", nothing,
               [](const CopiedSet& set) {
                 pictureAs(set, "right_0.png", [](cv::Mat& picture) { cv::blur(picture, picture, {5, 1}); });
               }},
        Spoilt{"board_small", "ring_320", [](scene::Scene& scene) { fewDots(scene, 1, 0.24); }, noFile},
        Spoilt{"low_coverage", "ring_320", [](scene::Scene& scene) { fewDots(scene, 3, 0.5); }, noFile},
        Spoilt{"one_distance", "ring_320", [](scene::Scene& scene) { repeatFirst(scene, 6); }, noFile},
        Spoilt{"too_few_dots", "ring_640_small", nothing,
               [](const CopiedSet& set) {
                 pictureAs(set, "left_0.png",
                           [&](cv::Mat& picture) { hideAllFarFromMarkers(picture, set.rendered.scene()); });
               }},
        Spoilt{"pair_stands_out", "ring_320", [](scene::Scene& scene) { repeatFirst(scene, 6); },
               [](const CopiedSet& set) {
                 pictureAs(set, "right_2.png", [](cv::Mat& picture) {
                   const cv::Mat down = (cv::Mat_<double>(2, 3) << 1.0, 0.0, 0.0, 0.0, 1.0, 1.5);
                   cv::warpAffine(picture, picture, down, picture.size(), cv::INTER_LINEAR, cv::BORDER_REPLICATE);
                 });
               }},
        Spoilt{"ghost_dots", "ring_640_small", nothing,
               [](const CopiedSet& set) {
                 pictureAs(set, "left_0.png", [&](cv::Mat& picture) {
                   const scene::Scene& scene = set.rendered.scene();
                   const auto centre = scene::pairTruth(scene, 0).dots.at(20).ellipse_left.centre;
                   const cv::Rect around(static_cast<int>(centre.x) - 9, static_cast<int>(centre.y) - 9, 18, 18);
                   const cv::Mat dot = picture(around).clone();
                   dot.copyTo(picture(around + cv::Point(4, 0)));
                 });
               }}),
    [](const auto& tested) { return std::string(tested.param.code); });

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
