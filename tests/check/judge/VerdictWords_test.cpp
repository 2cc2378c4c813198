#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeCheck.h"
#include "check/figures/Summary.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

Check checkOf(std::vector<PairCheck> pairs, Verdict verdict = Verdict::kPass) {
  Check check;
  check.pairs = std::move(pairs);
  check.summary = summaryOf(check.pairs);
  check.verdict = verdict;
  return check;
}

TEST(VerdictWords, HaveDecimalsAsThereIsRoomFor) {
  EXPECT_EQ(figureText(0.12345), "0.1235");
  EXPECT_EQ(figureText(0.0), "0.0000");
  EXPECT_EQ(figureText(0.00001234), "0.0000123");
  EXPECT_EQ(figureText(-12345678.0), "-12345678");
  EXPECT_EQ(figureText(60000.0), "60000.0000");
  EXPECT_EQ(figureText(1e5), "100000");
  EXPECT_EQ(figureText(2.5e10), "2.5e+10");
}

TEST(VerdictWords, NameTheWorstPairByTheFirstMainFigure) {
  EXPECT_EQ(worstPairText(checkOf({hand_made::pair(3, {0.1}, {}), hand_made::pair(4, {0.3}, {})})),
            "Worst pair: 4 (dy_means 0.3000 pixels); mean over 2 pairs 0.2000 pixels.");
  EXPECT_EQ(worstPairText(checkOf({hand_made::pair(3, {0.1}, {})})), "Worst pair: 3 (dy_means 0.1000 pixels).");
  EXPECT_EQ(worstPairText(checkOf({hand_made::pair(3, {}, {})})), "");
}

TEST(VerdictWords, TellTheErrorsOfRefinedFiguresBehindThem) {
  Check check = checkOf({hand_made::pair(3, {0.1}, {}), hand_made::pair(4, {0.3}, {})});
  for (PairCheck& pair : check.pairs) pair.refined.emplace().figures = pair.figures;
  check.refined_summary = refinedSummaryOf(check.pairs);
  EXPECT_EQ(refinedPairText(check), "From refined centres: dy_means 0.3000 pixels in pair 4, mean 0.2000 pixels.");
  check.pairs[1].refined->uncertainty = {{"dy_means", 0.002, 0.29, 0.31}};
  check.refined_summary->at(0).sd_mean = 0.01;
  EXPECT_EQ(refinedPairText(check),
            "From refined centres: dy_means 0.3000 ± 0.0020 pixels in pair 4, mean 0.2000 ± 0.0100 pixels.");
  check.pairs[1].refined->uncertainty = {{"dy_means", 1e-15, 0.3, 0.3}};  // What sums of the same number come to.
  EXPECT_THAT(refinedPairText(check), testing::HasSubstr("dy_means 0.3000 pixels in pair 4"));
}

TEST(VerdictWords, EndNoValueBeforeItsError) {
  const auto told = [](double value, double error) {
    PairCheck pair = hand_made::pair(3, {value}, {});
    pair.uncertainty = {{"dy_means", error, 0.0, 0.0}};
    const std::string text = worstPairText(checkOf({pair}));
    const std::size_t begin = text.find("dy_means ") + 9;
    return text.substr(begin, text.find(" pixels") - begin);
  };
  EXPECT_EQ(told(0.0048583, 0.0000572), "0.004858 ± 0.000057");
  EXPECT_EQ(told(0.5, 0.0000999), "0.5000 ± 0.0001");
  EXPECT_EQ(told(0.5, 0.0001), "0.5000 ± 0.0001");
  EXPECT_EQ(told(0.0000123, 0.0000041), "0.0000123 ± 0.0000041");
  EXPECT_EQ(told(0.1, 0.0), "0.1000 ± 0.0000") << "exact";
  EXPECT_EQ(told(123456.75, 0.5), "123456.8 ± 0.5");
  EXPECT_EQ(told(2.5e10, 3e5), "2.5e+10 ± 300000");
}

TEST(VerdictWords, CountPairs) {
  EXPECT_EQ(finishedText(checkOf({hand_made::pair(0, {0.1}, {})})), "1 of 1 pair finished.");
  EXPECT_EQ(finishedText(checkOf({hand_made::pair(0, {0.1}, {}), hand_made::givenUp(hand_made::pair(1, {}, {}))})),
            "1 of 2 pairs finished.");
}

TEST(VerdictWords, TellThatARunEndedBehindThePairsCounted) {
  Check check = checkOf({hand_made::pair(0, {0.1}, {})});
  check.status.name = "unusable_input";
  EXPECT_EQ(finishedText(check), "1 of 1 pair finished, then the run ended.");
  check.listed = 3;
  EXPECT_EQ(finishedText(check), "1 of 1 pair finished, then the run ended (3 are listed).");
  check.listed = 1;
  check.pairs[0] = hand_made::givenUp(check.pairs[0]);
  EXPECT_EQ(finishedText(check), "0 of 1 pair finished.");
}

TEST(VerdictWords, TellWhatEachStatusOfPairsGivenUpMeansOnce) {
  Check check =
      checkOf({hand_made::givenUp(hand_made::pair(0, {}, {})), hand_made::pair(1, {0.1}, {}),
               hand_made::givenUp(hand_made::pair(2, {}, {})), hand_made::givenUp(hand_made::pair(3, {}, {}))});
  check.pairs[3].reason.code = 1;
  EXPECT_THAT(givenUpTexts(check),
              ElementsAre(StartsWith("2 pairs given up with -6 (too_few_detected): Fewer than 6 dots were numbered in "
                                     "a picture. Look at the picture with 'polarline detect"),
                          StartsWith("1 pair given up with 1 (measurement_failed): The measurement of the rectified")));
  EXPECT_TRUE(givenUpTexts(checkOf({hand_made::pair(1, {0.1}, {})})).empty());
}

TEST(VerdictWords, SayTheVerdictAndWhy) {
  const LimitResult holds{"dy_means<=1", 0.1, 0, true, ""};
  const LimitResult broken{"dy_means<=0", 0.1, 0, false, ""};
  Check check = checkOf({hand_made::pair(0, {0.1}, {})});
  EXPECT_EQ(
      verdictText(check),
      "No limits were given: there are figures, and nothing was judged. --limit 'dy_means<=0.1' would judge one.");
  check.pairs[0].figures[0].name = "tri_rms";  // As in a frame run.
  check.summary = summaryOf(check.pairs);
  EXPECT_EQ(verdictText(check),
            "No limits were given: there are figures, and nothing was judged. --limit 'tri_rms<=0.1' would judge one.");
  check = checkOf({hand_made::pair(0, {0.1}, {})});
  check.limits = {holds};
  EXPECT_EQ(verdictText(check), "PASS: the limit holds.");
  check.limits = {holds, holds};
  EXPECT_EQ(verdictText(check), "PASS: all 2 limits hold.");
  check.pairs.push_back(hand_made::givenUp(hand_made::pair(1, {}, {})));
  EXPECT_EQ(verdictText(check), "PASS: all 2 limits hold, but 1 pair was given up and not judged.");
  check.pairs.push_back(hand_made::givenUp(hand_made::pair(2, {}, {})));
  EXPECT_EQ(verdictText(check), "PASS: all 2 limits hold, but 2 pairs were given up and not judged.");
  check.verdict = Verdict::kFail;
  check.limits = {holds, broken};
  EXPECT_EQ(verdictText(check), "FAIL: 1 of 2 limits do not hold.");
  check.limits = {broken};
  EXPECT_EQ(verdictText(check), "FAIL: the limit does not hold.");
  check.verdict = Verdict::kError;
  check.status.text = "nothing was seen";
  EXPECT_EQ(verdictText(check), "ERROR: nothing was seen");
}

TEST(VerdictWords, SayOnceWhyAPairEndedTheRun) {
  Check check = checkOf({hand_made::pair(0, {0.1}, {}), hand_made::givenUp(hand_made::pair(1, {}, {}))});
  EXPECT_EQ(endingPair(check), nullptr) << "such a pair need not end a run";
  EXPECT_EQ(endingText(check), verdictText(check));
  check.verdict = Verdict::kError;
  PairCheck& last = check.pairs[1];
  last.left = "l.png";
  last.right = "r.png";
  last.reason.text = "4 dots were found";
  check.status.code = last.reason.code;
  check.status.text = "pair 1 (l.png, r.png), which ended the run: 4 dots were found";
  EXPECT_EQ(endingPair(check), &last);
  EXPECT_EQ(endingText(check), "ERROR: pair 1 (l.png, r.png) ended the run; why stands in its row.");
  EXPECT_TRUE(givenUpTexts(check).empty()) << "its advice is the check's";
  check.pairs.insert(check.pairs.begin(), last);
  EXPECT_EQ(givenUpTexts(check).size(), 1U) << "another was given up for the same";
  check.status.text = "another reason";
  EXPECT_EQ(endingPair(check), nullptr);
}

TEST(VerdictWords, DoubtAVerdictByDoubtfulInputs) {
  Check check = checkOf({hand_made::pair(0, {0.1}, {})});
  check.limits = {{"dy_means<=1", 0.1, 0, true, ""}};
  check.warnings = {{"colour_pictures", "", ""}, {"scale_wrong", "", ""}};
  EXPECT_EQ(verdictText(check), "PASS: the limit holds. But see the warning scale_wrong first.");
}

TEST(VerdictWords, SayOfFisheyesWhichFiguresAreNot) {
  Check check = checkOf({hand_made::pair(0, {0.1}, {})});
  check.cameras.type = 2;
  EXPECT_EQ(fisheyeText(check), "") << "rectified elsewhere";
  check.cameras.extrinsics = {0, 0, 0, -60, 0, 0};
  EXPECT_THAT(fisheyeText(check), StartsWith("Fisheye lenses: residuals, distances"));
  check.cameras.type = 1;
  EXPECT_EQ(fisheyeText(check), "");
}

}  // namespace
}  // namespace polarline
