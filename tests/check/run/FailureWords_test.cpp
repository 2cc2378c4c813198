#include "check/run/FailureWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <regex>
#include <stdexcept>
#include <system_error>

#include "HandMadeCheck.h"
#include "polarline/exit_code.h"
#include "support/CopiedSet.h"

namespace polarline {
namespace {

using enum ExitCode;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// Pair 0 is finished, or not; pair 1 was given up, and its status is that of the run.
Check endedByPair1(bool is_first_finished) {
  Check check;
  check.pairs = {hand_made::pair(0, {0.1}, {}), hand_made::givenUp(hand_made::pair(1, {}, {}))};
  if (!is_first_finished) check.pairs[0] = hand_made::givenUp(check.pairs[0]);
  check.status.code = -6;
  check.status.exit_code = kNoFigure;
  check.status.advice = "Look.";
  return check;
}

TEST(FailureWordsOfTheLastPair, NameItAndWayOut) {
  Check check = endedByPair1(false);
  nameLastPair(check, 5);
  EXPECT_EQ(check.status.text,
            "pair 1 (l.png, r.png), which ended the run: 4 dots were found in the left picture; 6 are needed");
  EXPECT_EQ(check.status.advice, "Look. Or set discalsave to 0, which gives such a pair up and goes on with the next.");
  EXPECT_EQ(check.status.exit_code, kNoFigure);
}

TEST(FailureWordsOfTheLastPair, CallTheSetUnusableWherePairsBeforeHaveFigures) {
  Check check = endedByPair1(true);
  nameLastPair(check, 5);
  EXPECT_THAT(check.status.advice, HasSubstr("The pairs before it have figures; behind it 3 of 5 were not looked at."));
  EXPECT_EQ(check.status.exit_code, kUnusable);
  Check last = endedByPair1(true);
  nameLastPair(last, 2);
  EXPECT_THAT(last.status.advice, HasSubstr("have figures; it was the last."));
}

TEST(FailureWordsOfTheLastPair, SayNothingOfAPairThatDidNotEndTheRun) {
  Check other = endedByPair1(true);
  other.status.code = 8;
  nameLastPair(other, 2);
  EXPECT_EQ(other.status.text, "");
  Check finished = endedByPair1(true);
  std::swap(finished.pairs[0], finished.pairs[1]);
  nameLastPair(finished, 2);
  EXPECT_EQ(finished.status.advice, "Look.");
}

struct FailureWords : testing::Test {
  CopiedSet set;  // Two pairs of 128 x 102.
  Check check;
  RunInputs inputs;

  FailureWords() { inputs.set.target = set.file("target.ini"); }

  std::string list() const { return set.file("list.txt"); }
  ListedPictures pictures() const { return {listedPairs(list()), 0}; }
  /// The status of an exception in the first pair.
  Status statusOfFirst(const std::exception& error) const {
    ListedPictures taken = pictures();
    taken.take(0);
    return statusOf(error, inputs, &taken, 7, check);
  }
};

TEST_F(FailureWords, OfAPictureThatCanNotBeUsedNameItsLine) {
  set.cut("right_0.png");
  explainPictures(pictures(), list(), check);
  EXPECT_EQ(check.status.text, list() + ", line 2: the picture right_0.png can't be decoded: it is cut off");
  EXPECT_FALSE(check.status.retry);
}

TEST_F(FailureWords, OfAMachineAtItsEndSayThatItMaySucceedLater) {
  EXPECT_TRUE(statusOfFirst(std::bad_alloc()).retry);
  EXPECT_TRUE(statusOfFirst(cv::Exception(cv::Error::StsNoMem, "no memory", "f", "f.cpp", 1)).retry);
  EXPECT_TRUE(statusOf(std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again)), inputs,
                       nullptr, 0, check)
                  .retry);
  EXPECT_FALSE(statusOfFirst(std::runtime_error("no")).retry);
  EXPECT_FALSE(statusOfFirst(cv::Exception(cv::Error::StsAssert, "a > b", "f", "f.cpp", 1)).retry);
}

TEST_F(FailureWords, OfAPictureThatWentAwaySayThatItMayReturn) {
  const ListedPictures listed = pictures();
  std::filesystem::remove(set.file("left_0.png"));
  explainPictures(listed, list(), check);
  EXPECT_THAT(check.status.text, HasSubstr("line 2: the picture left_0.png can't be read: No such file"));
  EXPECT_TRUE(check.status.retry);
  EXPECT_EQ(check.status.exit_code, kNoFigure);
  EXPECT_THAT(check.status.advice, HasSubstr("then try again"));
}

TEST_F(FailureWords, OfAPictureThatIsBackNameBoth) {
  explainPictures(pictures(), list(), check);
  EXPECT_THAT(check.status.text, HasSubstr("left_0.png or right_0.png could not be read and has come back since"));
  EXPECT_TRUE(check.status.retry);
}

TEST_F(FailureWords, OfAnExceptionBeforeTheFirstPictureAreItsOwn) {
  const Status status = statusOf(std::runtime_error("no  luck"), inputs, nullptr, 0, check);
  EXPECT_EQ(status.name, "exception");
  EXPECT_EQ(status.text, "no luck");
  EXPECT_EQ(status.exit_code, kNoFigure);
}

TEST_F(FailureWords, OfAnExceptionNameThePairCountedInTheList) {
  const Status ours = statusOfFirst(std::runtime_error("no luck"));
  EXPECT_EQ(ours.text, "pair 7 (left_0.png, right_0.png): no luck");
  const Status theirs = statusOfFirst(cv::Exception(cv::Error::StsBadArg, "odd", "f", "f.cpp", 1));
  EXPECT_EQ(theirs.text, "pair 7 (left_0.png, right_0.png): an evaluation of it failed (OpenCV says: odd)");
}

TEST_F(FailureWords, OfAnExceptionNameTheEvaluationWhereItShows) {
  inputs.config.crop = 1;
  inputs.config.cropped_cols = 500;
  inputs.config.cropped_rows = 40;
  const Status status = statusOfFirst(cv::Exception(cv::Error::StsBadArg, "odd", "f", "f.cpp", 1));
  EXPECT_THAT(status.text, HasSubstr("is 500 x 40 pixels, and the pictures are 128 x 102 (OpenCV says: odd)"));
  EXPECT_THAT(status.advice, HasSubstr("set crop to 0"));
}

TEST_F(FailureWords, OfPicturesOfTwoSizesTellBoth) {
  cv::Mat small;
  cv::resize(set.picture("right_0.png"), small, cv::Size(64, 51));
  set.write("right_0.png", small);
  const Status status = statusOfFirst(std::runtime_error("whatever"));
  EXPECT_EQ(status.exit_code, kUnusable);
  EXPECT_EQ(status.text, "pair 7: left_0.png is 128 x 102, right_0.png is 64 x 51 pixels; two of one size were wanted");
}

TEST_F(FailureWords, OfIdsBeyondTheBoardSayWhatThePicturesShow) {
  const std::out_of_range beyond("vector::_M_range_check: __n (which is 99) >= this->size() (which is 63)");
  const std::string usual = statusOfFirst(beyond).advice;
  set.write("target.ini", std::regex_replace(set.read("target.ini"), std::regex("\ncols: 9"), "\ncols: 8"));
  EXPECT_THAT(statusOfFirst(beyond).advice,
              StartsWith("Both pictures show 9 columns and 7 rows of dots, and the board is described with 8 and 7"));
  inputs.config.frame_work = 1;  // There they are not ids of dots alone.
  EXPECT_EQ(statusOfFirst(beyond).advice, usual);
}

TEST_F(FailureWords, OfATruthThatIsCutOffNameItsFile) {
  inputs.set.board = "b/board_gt.txt";
  check.board.rows = 7;
  check.board.cols = 9;
  check.board.points = 40;
  const Status status =
      statusOfFirst(std::out_of_range("vector::_M_range_check: __n (which is 40) >= this->size() (which is 40)"));
  EXPECT_EQ(status.exit_code, kUnusable);
  EXPECT_THAT(status.text, StartsWith("b/board_gt.txt: has 40 positions, and dot 40 was seen, which the board has, "
                                      "too: it has 63 dots"));
  const Status beyond =
      statusOfFirst(std::out_of_range("vector::_M_range_check: __n (which is 63) >= this->size() (which is 40)"));
  EXPECT_THAT(beyond.text, HasSubstr("a dot was numbered 63")) << "no such dot is on the board";
}

TEST(FailureWordsOfIds, SayThatTheMarkersSpanAnotherRectangle) {
  const CopiedSet rings(RenderedSet::of("ring_320"));
  RunInputs inputs;
  inputs.set.target = rings.file("target.ini");
  // Markers that stand nearer to each other than described shift all numbers by a row.
  const std::string target = rings.read("target.ini");
  rings.write("target.ini", std::regex_replace(target, std::regex("\ninner_height: \\d+"), "\ninner_height: 9"));
  ASSERT_NE(rings.read("target.ini"), target);
  ListedPictures pictures(listedPairs(rings.file("list.txt")), 0);
  pictures.take(0);
  const std::out_of_range beyond("vector::_M_range_check: __n (which is 65523) >= this->size() (which is 255)");
  const Status status = statusOf(beyond, inputs, &pictures, 0, Check{});
  EXPECT_THAT(status.text, HasSubstr("a dot was numbered 65523"));
  EXPECT_THAT(status.advice, testing::ContainsRegex("In the left picture the markers of the picture span"));
}

}  // namespace
}  // namespace polarline
