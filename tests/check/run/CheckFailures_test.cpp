#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <opencv2/imgproc.hpp>

#include "CheckedSet.h"
#include "PolarLinePrecision/Status.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(CheckFailures, NameThePictureThatEndedTheRun) {
  const CopiedSet set;
  set.cut("right_1.png");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_EQ(check.status.code, polar_status::kImages);
  EXPECT_EQ(check.status.text,
            set.file("list.txt") + ", line 3: the picture right_1.png can't be decoded: it is cut off");
  EXPECT_EQ(check.verdict, Verdict::kError);
  EXPECT_FALSE(check.status.retry);
  EXPECT_EQ(check.pairs.size(), 1U);
  documentIsValid(check);
}

TEST(CheckFailures, OfAFolderInAPicturesPlaceStay) {
  const CopiedSet set;
  std::filesystem::remove(set.file("left_1.png"));
  std::filesystem::create_directory(set.file("left_1.png"));
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_THAT(check.status.text, HasSubstr("line 3: the picture left_1.png can't be read"));
  EXPECT_FALSE(check.status.retry);
  documentIsValid(check);
}

TEST(CheckFailures, OfAPictureThatWentAwayMayBeTriedAgain) {
  const CopiedSet set;
  set.repeat(5);
  set.append("list.txt", "left_0.png right_1.png\n");
  CheckOptions options;
  options.out = set.parent.file("out");
  options.on_pair = [&](const PairCheck&, std::size_t) { std::filesystem::remove(set.file("right_1.png")); };
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 3);
  EXPECT_TRUE(check.status.retry);
  EXPECT_EQ(check.status.text,
            set.file("list.txt") + ", line 7: the picture right_1.png can't be read: No such file or directory");
  EXPECT_THAT(check.status.advice, HasSubstr("It was there when the run began"));
  EXPECT_EQ(check.verdict, Verdict::kError);
  EXPECT_EQ(check.pairs.size(), 5U);
  EXPECT_FALSE(set.parent.has("out"));
  documentIsValid(check);
}

TEST(CheckFailures, OfAPictureThatWasNeverThereStay) {
  const CopiedSet set;
  std::filesystem::remove(set.file("right_1.png"));
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_FALSE(check.status.retry);
}

TEST(CheckFailures, OfASetWhoseFolderIsAwayMayBeTriedAgain) {
  const CopiedSet set;
  std::filesystem::rename(set.folder, set.parent.file("away"));
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_TRUE(check.status.retry);
  EXPECT_EQ(check.status.text, set.folder.string() + ": there is no such folder");
  documentIsValid(check);
}

TEST(CheckFailures, OfAFileThatTheFolderLacksStay) {
  const CopiedSet set;
  std::filesystem::remove(set.file("polar.txt"));
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_FALSE(check.status.retry);
}

TEST(CheckFailures, OfPicturesWhoseFolderIsAwayMayBeTriedAgain) {
  const CopiedSet set;
  set.write("list.txt", "#L R\npictures/l.png pictures/r.png\n");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_TRUE(check.status.retry);
  EXPECT_THAT(check.status.text, HasSubstr("list.txt, line 2: there is no picture pictures/l.png in "));
}

/// The kernel's file has another content whenever it is read.
TEST(CheckFailures, OfAFileThatChangedWhileItWasReadMayBeTriedAgain) {
  const CopiedSet set;
  Set named = set.set();
  named.board = "/proc/sys/kernel/random/uuid";
  const Check check = polarline::check(named);
  EXPECT_EQ(check.status.exit_code, 3);
  EXPECT_TRUE(check.status.retry);
  EXPECT_EQ(check.status.text, named.board + ": changed or went away while it was read");
  EXPECT_EQ(check.id, "");
  documentIsValid(check);
}

/// The library opens the description of the board again for each pair, and takes a board of its own where it finds
/// none.
TEST(CheckFailures, AreNotMadeOfFilesThatGoAwayOnceTheyAreRead) {
  const CopiedSet set;
  set.append("polar.txt", "discalswitch: 1\n");
  const Check whole = set.check();
  ASSERT_EQ(whole.finished(), 2U);
  CheckOptions options;
  options.on_start = [&](const Check&) {
    for (const char* name : {"target.ini", "polar.txt", "calib.json", "list.txt", "board_gt.txt"})
      std::filesystem::remove(set.file(name));
  };
  const Check check = set.check(options);
  EXPECT_EQ(check.id, whole.id);
  nlohmann::json document = nlohmann::json::parse(toJson(check)), wanted = nlohmann::json::parse(toJson(whole));
  for (const char* of_time : {"started", "seconds"}) {
    document.erase(of_time);
    wanted.erase(of_time);
  }
  EXPECT_EQ(document, wanted);
}

TEST(CheckFailures, NameThePicturesOfUnlikeSizes) {
  const CopiedSet set;
  cv::Mat small;
  cv::resize(set.picture("right_1.png"), small, cv::Size(64, 51));
  set.write("right_1.png", small);
  const Check check = set.check();
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "picture_size");
  EXPECT_EQ(check.warnings[0].text, "left_1.png is 128 x 102, right_1.png is 64 x 51 pixels");
  EXPECT_EQ(check.warnings[0].pair, 1);
  documentIsValid(check);
}

TEST(CheckFailures, OfEveryPairHaveNoFigure) {
  const CopiedSet set;
  switchAllOn(set);
  set.blank("left_0.png");
  set.blank("right_1.png");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 3);
  EXPECT_EQ(check.status.name, "no_figures");
  EXPECT_FALSE(check.status.advice.empty());
  EXPECT_EQ(check.pairs.size(), 2U);
  documentIsValid(check);
}

TEST(CheckFailures, NameThePairThatEndedTheRun) {
  const CopiedSet set;
  switchAllOn(set);
  set.append("polar.txt", "discalsave: 1\n");
  set.blank("left_1.png");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2) << "there are figures, and not of the whole set";
  EXPECT_EQ(check.verdict, Verdict::kError);
  EXPECT_THAT(check.status.text, StartsWith("pair 1 (left_1.png, right_1.png), which ended the run: 0 dots were found "
                                            "in the left picture; 6 are needed: "));
  EXPECT_THAT(check.status.advice, HasSubstr("set discalsave to 0"));
  EXPECT_THAT(check.status.advice, HasSubstr("The pairs before it have figures; it was the last."));
  documentIsValid(check);
  set.blank("left_0.png");
  EXPECT_EQ(set.check().status.exit_code, 3);
}

TEST(CheckFailures, OfTheOutFolderMayBeTriedAgain) {
  const CopiedSet set;
  CheckOptions options;
  options.out = set.file("list.txt");
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 4);
  EXPECT_TRUE(check.status.retry);
  documentIsValid(check);
}

}  // namespace
}  // namespace polarline
