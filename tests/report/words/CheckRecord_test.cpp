#include "report/words/CheckRecord.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

/// Of three pairs, one given up and one that did not measure the figure.
Check threePairs() {
  Check check = made_document::check();
  check.pairs = {made_document::pair(3, 0.2), hand_made::givenUp(made_document::pair(4, 0.3)),
                 hand_made::pair(5, {}, {1.0, 2.0})};
  check.pairs[0].uncertainty = {{"dy_means", 0.01, 0.18, 0.22}};
  check.pairs[0] = hand_made::refined(check.pairs[0], {0.1}, {});
  check.pairs[0].refined->uncertainty = {{"dy_means", 0.002, 0.096, 0.104}};
  check.summary = {made_document::summary("dy_means", 0.2, NAN, 3), made_document::summary("tri_dis[1]", 2.0, NAN, 5)};
  check.refined_summary = {made_document::summary("dy_means", 0.1, NAN, 3)};
  for (auto* summaries : {&check.summary, &*check.refined_summary}) {
    for (FigureSummary& each : *summaries) each.unit = each.name == "dy_means" ? "pixels" : "board unit";
  }
  return check;
}

TEST(CheckRecordSentences, AreThoseOfTheCheckItself) {
  for (const Verdict verdict : {Verdict::kPass, Verdict::kFail, Verdict::kError}) {
    Check check = threePairs();
    check.verdict = verdict;
    check.status.text = "there are no pictures";
    check.limits.push_back({"tri_rms<=1", std::nullopt, -1, verdict == Verdict::kPass, "nobody measured it"});
    check.warnings = {{"scale_wrong", "text", "advice", 3}};
    const Check record = checkRecord(made_document::json(check));
    EXPECT_EQ(verdictText(record), verdictText(check));
    EXPECT_EQ(worstPairText(record), worstPairText(check));
    EXPECT_NE(worstPairText(record), "");
    EXPECT_EQ(refinedPairText(record), refinedPairText(check));
    EXPECT_NE(refinedPairText(record), "");
    EXPECT_EQ(finishedText(record), finishedText(check));
  }
}

TEST(CheckRecordSentences, ARefinedFigureHasItsOwnError) {
  EXPECT_EQ(refinedPairText(checkRecord(made_document::json(threePairs()))),
            "From refined centres: dy_means 0.1000 ± 0.0020 pixels in pair 3.");
}

TEST(CheckRecordSentences, ARunThatEndedEarlySaysSo) {
  Check check = threePairs();
  check.status.name = "input_unusable";
  EXPECT_EQ(finishedText(checkRecord(made_document::json(check))), "2 of 3 pairs finished, then the run ended.");
}

TEST(CheckRecordSentences, FisheyeLensesAreTold) {
  Check check = threePairs();
  EXPECT_EQ(fisheyeText(checkRecord(made_document::json(check))), "");
  check.cameras.type = 2;
  EXPECT_EQ(fisheyeText(checkRecord(made_document::json(check))), fisheyeText(check));
  EXPECT_NE(fisheyeText(check), "");
  check.cameras.extrinsics.clear();
  EXPECT_EQ(fisheyeText(checkRecord(made_document::json(check))), "") << "rectified elsewhere";
}

TEST(CheckRecordSummary, CountsThePairsThatMeasured) {
  const Check record = checkRecord(made_document::json(threePairs()));
  ASSERT_EQ(record.summary.size(), 2U);
  EXPECT_EQ(record.summary[0].count, 1U);
  EXPECT_EQ(record.summary[0].worst_pair, 3U);
  EXPECT_EQ(record.summary[1].count, 1U) << "a list entry";
  EXPECT_EQ(record.summary[1].unit, "board unit");
  EXPECT_EQ(record.refined_summary->at(0).count, 1U);
}

TEST(CheckRecordLimits, KeepValueAndReason) {
  const Check record = checkRecord(made_document::json(threePairs()));
  ASSERT_EQ(record.limits.size(), 1U);
  EXPECT_EQ(record.limits[0].value, 0.055);
  EXPECT_EQ(record.limits[0].why, "dy_means is 0.055 in pair 0");
}

TEST(CheckRecordUnits, AreInWords) {
  EXPECT_EQ(unitOf("dy_means"), "pixels");
  EXPECT_EQ(unitOf("tri_dis[3]"), "board unit");
  EXPECT_EQ(unitOf("dy_ratio"), "");
  EXPECT_EQ(unitOf("rotation_x"), "degrees");
  EXPECT_EQ(unitOf("row_offset"), "pixels");
  EXPECT_EQ(unitOf("no_such_figure"), "");
}

}  // namespace
}  // namespace polarline
