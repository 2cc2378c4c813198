#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "CheckedSet.h"
#include "support/SmallScene.h"
#include "tools/scene/Misalignment.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

/// A set without list and pictures, and these in memory.
struct CheckPictures : ::testing::Test {
  CopiedSet set;
  CheckOptions options;
  Check of_files = set.check();

  CheckPictures() {
    options.pictures.emplace();
    for (const char* number : {"0", "1"}) {
      options.pictures->left.push_back(take(std::string("left_") + number + ".png"));
      options.pictures->right.push_back(take(std::string("right_") + number + ".png"));
    }
    std::filesystem::remove(set.file("list.txt"));
  }
  cv::Mat take(const std::string& name) const {
    cv::Mat picture = set.picture(name);
    std::filesystem::remove(set.file(name));
    return picture;
  }
};

/// From the pairs on, but for their names.
std::string figuresOf(Check check) {
  for (PairCheck& pair : check.pairs) pair.left = pair.right = "";
  check.inputs.clear();
  check.id = check.started = "";
  check.seconds = 0.0;
  return toJson(check);
}

TEST_F(CheckPictures, GiveTheFiguresOfTheirFiles) {
  const Check check = set.check(options);
  documentIsValid(check);
  EXPECT_EQ(figuresOf(check), figuresOf(of_files));
  EXPECT_EQ(check.pairs.at(1).left, "left[1]");
  EXPECT_EQ(check.id.size(), 64U);
}

TEST_F(CheckPictures, MayHaveGapsBetweenTheirRows) {
  cv::Mat& left = options.pictures->left[0];
  cv::Mat wide(left.rows, left.cols + 13, left.type(), cv::Scalar(255));
  cv::Mat part = wide.colRange(5, 5 + left.cols);
  left.copyTo(part);
  const std::string id = set.check(options).id;
  left = part;
  ASSERT_FALSE(left.isContinuous());
  EXPECT_EQ(figuresOf(set.check(options)), figuresOf(of_files));
  EXPECT_EQ(set.check(options).id, id);
}

TEST_F(CheckPictures, AreChosenByTheirPlaces) {
  options.pairs = {1, 1};
  const Check check = set.check(options);
  ASSERT_EQ(check.pairs.size(), 1U);
  EXPECT_EQ(check.pairs[0].index, 1U);
  EXPECT_EQ(check.pairs[0].points.left_x, of_files.pairs.at(1).points.left_x);
}

TEST(CheckPicturesCorrected, AreCheckedAgain) {
  scene::Scene scene = small_scene::withSecondPose(small_scene::dots());
  scene::Misalignment looks_down;
  looks_down.rotation_x = 0.3;
  scene.rig = scene::misaligned(scene.given, looks_down);
  const RenderedSet rendered(scene);
  const CopiedSet set(rendered);
  CheckOptions options;
  options.write_corrected = set.file("corrected.json");
  options.pictures = {{set.picture("left_0.png"), set.picture("left_1.png")},
                      {set.picture("right_0.png"), set.picture("right_1.png")}};
  std::filesystem::remove(set.file("list.txt"));
  const Check check = set.check(options);
  ASSERT_TRUE(check.correction.has_value()) << check.status.text << check.diagnosis->text;
  EXPECT_LT(check.correction->rows_seen, check.diagnosis->rows_before / 3.0);
}

TEST_F(CheckPictures, ThatNoRunTakesAreRefusedByTheirPlace) {
  options.pictures->right[1] = cv::Mat();
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_THAT(check.status.text, HasSubstr("right[1]: is empty"));
}

}  // namespace
}  // namespace polarline
