#include "report/picture/SetPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "MadeDocument.h"
#include "check/set/Fingerprint.h"
#include "report/measure/Crop.h"
#include "support/CopiedSet.h"

namespace polarline {
namespace {

/// A set whose second pair has no dots on the right.
struct SetPicturesOf : ::testing::Test {
  CopiedSet set;

  SetPicturesOf() { set.append("polar.txt", "\ndiscalsave: 0\n"); }
  Json checked() const { return made_document::json(set.check()); }
  static SetPictures pictures(const Json& document) {
    return {document, "", partLookedAt(document), knownCameras(document)};
  }
};

TEST_F(SetPicturesOf, AFinishedPair) {
  const PairPictures shown = pictures(checked()).of(0);
  ASSERT_TRUE(shown.left && shown.right);
  EXPECT_EQ(shown.left->size, cv::Size(128, 102));
  EXPECT_THAT(shown.left->source, ::testing::StartsWith("data:image/jpeg;base64,/9j/"));
  EXPECT_NE(shown.left->source, shown.right->source);
  EXPECT_FALSE(shown.failed);
}

TEST_F(SetPicturesOf, APairGivenUpShowsTheSideThatFailed) {
  set.blank("right_1.png");
  const Json document = checked();
  ASSERT_EQ(document["pairs"][1]["reason"]["side"], "right");
  const PairPictures shown = pictures(document).of(1);
  ASSERT_TRUE(shown.left && shown.right && shown.failed);
  EXPECT_EQ(shown.failed->seen, "right picture");
  EXPECT_THAT(shown.failed->text, ::testing::HasSubstr("outline")) << "of a bare grey nothing has one";
  EXPECT_THAT(shown.failed->picture.source, ::testing::StartsWith("data:image/jpeg;base64,/9j/"));
}

/// A corner dot is hidden on the right, which the point cloud wants and the triangulation does not.
TEST_F(SetPicturesOf, APairGivenUpAfterTheRectificationShowsTheRectifiedPicture) {
  set.append("polar.txt", "\nPolPoint1_ID: 0\n");
  set.hide(false, 1, 0);
  const Json document = checked();
  ASSERT_EQ(document["pairs"][1]["reason"]["step"], "cloud");
  const PairPictures shown = pictures(document).of(1);
  ASSERT_TRUE(shown.left && shown.failed);
  EXPECT_EQ(shown.failed->seen, "rectified left picture");
  EXPECT_NE(shown.failed->picture.size, shown.left->size) << "it is enlarged, with a legend";
  const PairPictures unknown = SetPictures(document, "", partLookedAt(document), std::nullopt).of(1);
  ASSERT_TRUE(unknown.failed);
  EXPECT_EQ(unknown.failed->seen, "left picture");
  EXPECT_THAT(unknown.failed->text, ::testing::HasSubstr("can't be made again"));
}

/// A picture of three channels ends the run with the second pair, which has no entry then.
TEST_F(SetPicturesOf, TheRunThatAnEvaluationEndedAreBehindTheLastPair) {
  EXPECT_FALSE(pictures(checked()).of(2).left) << "it came to its end";
  set.append("polar.txt", "\ntriangulate_residual_switch: 1\n");
  const cv::Mat grey = cv::imread(set.file("left_1.png"));
  cv::imwrite(set.file("left_1.png"), grey);  // Of three channels.
  const Json document = checked();
  ASSERT_EQ(document["pairs"].size(), 1U);
  const SetPictures shown = pictures(document);
  const PairPictures last = shown.of(1);
  ASSERT_TRUE(last.left && last.right && last.failed);
  EXPECT_EQ(last.failed->seen, "left picture");
  EXPECT_FALSE(shown.of(2).left);
}

TEST_F(SetPicturesOf, ChangedOrMissingFilesAreNone) {
  const Json document = checked();
  set.blank("left_0.png");
  std::filesystem::remove(set.file("right_0.png"));
  const PairPictures shown = pictures(document).of(0);
  EXPECT_FALSE(shown.left || shown.right || shown.failed);
}

TEST_F(SetPicturesOf, OnlyThePartThatWasLookedAt) {
  Json document = checked();
  document["settings"]["crop"] = 1;
  document["settings"]["cropped_cols"] = 100;
  document["settings"]["cropped_rows"] = 80;
  EXPECT_EQ(pictures(document).of(0).left->size, cv::Size(100, 80));
}

TEST_F(SetPicturesOf, WhatIsNoPictureIsNone) {
  set.write("left_0.png", std::string("no picture"));
  Json document = made_document::json(made_document::check());
  document["set"]["inputs"] = Json::parse(R"([{"role": "left/0", "path": "", "sha256": ""}])");
  document["set"]["inputs"][0]["path"] = set.file("left_0.png");
  document["set"]["inputs"][0]["sha256"] = sha256("no picture");
  EXPECT_FALSE(pictures(document).of(0).left);
}

}  // namespace
}  // namespace polarline
