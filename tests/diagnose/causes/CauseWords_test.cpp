#include "diagnose/causes/CauseWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

struct Clause {
  CauseKind kind;
  double value;
  const char* words;
};

class CauseWordsClause : public testing::TestWithParam<Clause> {};

TEST_P(CauseWordsClause, TellsTheSignAsADirection) {
  EXPECT_THAT(cause_words::clause(GetParam().kind, GetParam().value), HasSubstr(GetParam().words));
}

constexpr double kTenthOfADegree = 0.1 * 3.14159265358979 / 180.0;

INSTANTIATE_TEST_SUITE_P(
    Signs, CauseWordsClause,
    testing::Values(Clause{CauseKind::kRotationX, kTenthOfADegree, "the right camera looks down by 0.1 degrees"},
                    Clause{CauseKind::kRotationX, -kTenthOfADegree, "the right camera looks up by 0.1 degrees"},
                    Clause{CauseKind::kRotationY, kTenthOfADegree, "looks to the left by 0.1 degrees"},
                    Clause{CauseKind::kRotationY, -kTenthOfADegree, "looks to the right by 0.1 degrees"},
                    Clause{CauseKind::kRotationZ, kTenthOfADegree, "its picture turns clockwise"},
                    Clause{CauseKind::kRotationZ, -kTenthOfADegree, "its picture turns counter-clockwise"},
                    Clause{CauseKind::kFocalRatio, 0.002, "0.2 % longer"},
                    Clause{CauseKind::kFocalRatio, -0.002, "0.2 % shorter"},
                    Clause{CauseKind::kRowOffset, 0.4, "0.4 px lower"},
                    Clause{CauseKind::kRowOffset, -0.4, "0.4 px higher"},
                    Clause{CauseKind::kBaselineY, 0.3, "0.3 board units higher"},
                    Clause{CauseKind::kBaselineY, -0.3, "0.3 board units lower"},
                    Clause{CauseKind::kBaselineZ, 0.3, "0.3 board units further back"},
                    Clause{CauseKind::kBaselineZ, -0.3, "0.3 board units further forward"},
                    Clause{CauseKind::kK1, 0.01, "is 0.01 more"}, Clause{CauseKind::kK1, -0.01, "is 0.01 less"}));

FoundCauses quiet(double rows) {
  FoundCauses found;
  found.rows_before = found.rows_after = rows;
  found.spread_after = 1.25 * rows;
  return found;
}

TEST(CauseWords, SayThatNoneIsNeeded) {
  EXPECT_EQ(cause_words::ofAll(quiet(0.02)),
            "No cause is needed: the rows differ by 0.02 px in the mean, which is the noise.");
}

// 414 pixels of one dot of 255 are in the mean of all, and no noise.
TEST(CauseWords, TellOutliersBesideTheNoise) {
  FoundCauses found = quiet(0.127);
  found.outliers = 2;
  found.kept_before = found.kept_after = 0.0601;
  EXPECT_EQ(
      cause_words::ofAll(found),
      "No cause is needed: without 2 dots that are far off the rows differ by 0.0601 px in the mean, which is the "
      "noise; with them by 0.127 px.");
  found.outliers = 1;
  found.choice.named.set(static_cast<std::size_t>(CauseKind::kRotationZ));
  EXPECT_THAT(cause_words::ofAll(found),
              HasSubstr("; without 1 dot that is far off, what remains is 0.0601 px, the noise."));
  found.kept_after = 0.125;
  EXPECT_THAT(cause_words::ofAll(found), HasSubstr("; what remains is noise."));
}

TEST(CauseWords, SayThatNoneExplainsAPattern) {
  FoundCauses found = quiet(0.02);
  found.alike.smooth_rms = 0.02;
  EXPECT_TRUE(cause_words::hasPattern(found));
  EXPECT_THAT(cause_words::ofAll(found), HasSubstr("None of the causes known explains"));
}

TEST(CauseWords, DoNotCallLargeDifferencesNoise) {
  EXPECT_THAT(cause_words::ofAll(quiet(32.0)),
              HasSubstr("The rows differ by 32 px in the mean, and no turn or shift of the cameras explains that"));
  FoundCauses found = quiet(0.6);
  found.rows_before = 1.0;
  found.choice.named.set(static_cast<std::size_t>(CauseKind::kRowOffset));
  EXPECT_THAT(cause_words::ofAll(found), HasSubstr("instead of 1 px; what remains is more than noise."));
}

TEST(CauseWords, TellThePatternOfLargeDifferencesToo) {
  FoundCauses found = quiet(0.6);
  found.rows_before = 1.0;
  found.choice.named.set(static_cast<std::size_t>(CauseKind::kRowOffset));
  found.alike.smooth_rms = 0.5;
  EXPECT_THAT(cause_words::ofAll(found),
              HasSubstr("instead of 1 px; of what remains 0.5 px are alike in neighbouring"));
}

TEST(CauseWords, TellACauseAndWhatRemains) {
  FoundCauses found = quiet(0.02);
  found.rows_before = 1.0;
  found.choice.named.set(static_cast<std::size_t>(CauseKind::kRowOffset));
  at(found.values, CauseKind::kRowOffset) = 1.0;
  at(found.sds, CauseKind::kRowOffset) = 0.012;
  EXPECT_EQ(cause_words::ofCause(found, CauseKind::kRowOffset),
            "the principal point of the right camera is 1.000 ± 0.012 px lower");
  EXPECT_EQ(cause_words::ofAll(found),
            "The principal point of the right camera is 1.000 ± 0.012 px lower. With that taken out the rows should "
            "differ by "
            "0.02 px in the mean instead of 1 px; what remains is noise.");
}

TEST(CauseWords, SayWhereACauseIsUnsure) {
  EXPECT_EQ(cause_words::clause(CauseKind::kBaselineY, 0.5, 0.2),
            "the right camera stands 0.5 ± 0.2 board units higher, which these pictures leave unsure: take some at two "
            "distances");
  EXPECT_EQ(cause_words::clause(CauseKind::kBaselineY, -0.5, 0.1),
            "the right camera stands 0.5 ± 0.1 board units lower");
}

TEST(CauseWords, TellAGroupWithWhatWouldTellItApart) {
  FoundCauses found = quiet(0.02);
  for (const CauseKind kind : {CauseKind::kRowOffset, CauseKind::kBaselineY}) {
    found.choice.named.set(static_cast<std::size_t>(kind));
    found.choice.group.at(static_cast<std::size_t>(kind)) = 1;
  }
  found.alone.at(static_cast<std::size_t>(CauseKind::kRowOffset)) = 1.0;
  found.alone.at(static_cast<std::size_t>(CauseKind::kBaselineY)) = 0.5;
  const std::string text = cause_words::ofAll(found);
  EXPECT_THAT(text, HasSubstr("Either the principal point of the right camera is 1 px lower; or the right camera "
                              "stands 0.5 board units higher; or some of each"));
  EXPECT_THAT(text, HasSubstr("do not tell row_offset and baseline_y apart: take pictures at two distances"));
  EXPECT_EQ(cause_words::ofCause(found, CauseKind::kRowOffset),
            "if it is this alone: the principal point of the right camera is 1 px lower");
}

}  // namespace
