#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cerrno>
#include <regex>
#include <set>

#include "Tallowfen/src/trace/DetectionTrace.h"
#include "calibrations/Warnings.h"
#include "check/explain/Tables.h"
#include "check/init/Warnings.h"
#include "diagnose/warnings/Codes.h"
#include "diagnose/warnings/Thresholds.h"
#include "polar/results/PairStatus.h"
#include "polarline/check.h"
#include "polarline/explain.h"
#include "support/Places.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

TEST(ExplanationsKnow, EveryStatusOfTheLibrary) {
  const std::string header = TempFolder::contentOf(places::inProject("include/PolarLinePrecision/Status.h"));
  const std::regex constant(R"(std::int32_t k\w+ = (-?\d+);)");
  int statuses = 0;
  for (std::sregex_iterator found(header.begin(), header.end(), constant), end; found != end; ++found, ++statuses) {
    EXPECT_TRUE(explain((*found)[1])) << (*found)[0];
  }
  EXPECT_GE(statuses, 23);
}

TEST(ExplanationsKnow, WhyTheSystemOpensNoCalibration) {
  for (const int status :
       {ENOENT, EIO, EACCES, ENOTDIR, EISDIR, ENFILE, EMFILE, ENAMETOOLONG, ELOOP, ETIMEDOUT, ESTALE}) {
    const auto explained = explain(std::to_string(status));
    ASSERT_TRUE(explained) << status;
    EXPECT_THAT(explained->meaning, ::testing::StartsWith("The binary calibration file does not open: ")) << status;
  }
}

TEST(ExplanationsKnow, TheStatusesThatOnlyARunSees) {
  EXPECT_TRUE(explain(std::to_string(kGroupPointMissing)));
  const auto failed = explain(std::to_string(kMeasurementFailed) + " in a pair");
  ASSERT_TRUE(failed);
  EXPECT_EQ(failed->name, "measurement_failed");
}

TEST(ExplanationsKnow, EveryWarning) {
  for (const char* code : {"unknown_key", "no_board_truth", "board_truth_short", "picture_size", "colour_pictures",
                           "bad_value", "bad_line", "principal_point_outside", "pairs_given_up"})
    EXPECT_TRUE(explain(code)) << code;
  for (const warnings::Table* table :
       {&calibrations::warningCodes(), &diagnose::warningCodes(), &init::warningCodes()}) {
    for (const warnings::Code& each : *table) {
      const auto explained = explain(each.code);
      ASSERT_TRUE(explained) << each.code;
      EXPECT_EQ(explained->meaning, each.meaning);
      EXPECT_EQ(explained->advice, each.advice);
    }
  }
}

TEST(ExplanationsPage, TellsEveryWarningInTheSameWords) {
  const std::string page = TempFolder::contentOf(places::inProject("docs/warnings.md"));
  const auto hasRow = [&](const std::string& code, const std::string& meaning, const std::string& advice) {
    const std::string row = "| `" + code + "` | " + meaning + " | " + advice + " |";
    EXPECT_NE(page.find(row), std::string::npos) << row;
  };
  for (const Entry& each : warningEntries()) hasRow(each.code, each.meaning, each.advice);
  for (const warnings::Table* table :
       {&calibrations::warningCodes(), &diagnose::warningCodes(), &init::warningCodes()}) {
    for (const warnings::Code& each : *table) hasRow(each.code, each.meaning, each.advice);
  }
}

TEST(ExplanationsPage, TellsStatusesWithoutANumber) {
  const std::string page = TempFolder::contentOf(places::inProject("docs/statuses.md"));
  int told = 0;
  for (const Entry& each : statusEntries()) {
    if (std::string(each.code).find_first_of("0123456789") != std::string::npos) continue;
    const std::string row = fmt::format("| `{}` | {} | {} |", each.name, each.meaning, each.advice);
    EXPECT_NE(page.find(row), std::string::npos) << row;
    ++told;
  }
  EXPECT_EQ(told, 5);
}

TEST(ExplanationsPage, TellsFromWhereOnACheckWarns) {
  namespace t = diagnose::thresholds;
  const std::string page = TempFolder::contentOf(places::inProject("docs/warnings.md"));
  const auto percent = [](double share) { return fmt::format("{:g} %", 100.0 * share); };
  for (const auto& [code, words] : std::vector<std::pair<std::string, std::string>>{
           {"saturated", percent(t::kSaturated)},
           {"too_dark", percent(t::kDark)},
           {"low_contrast", percent(t::kContrast)},
           {"low_contrast", fmt::format("{:g} times the noise", t::kContrastInNoise)},
           {"blurred", fmt::format("{:g} pixels", t::kEdgeWidth)},
           {"motion_blur", fmt::format("{:g} times", t::kMotionRatio)},
           {"motion_blur", fmt::format("{:g} pixels", t::kMotionSmear)},
           {"board_small", percent(t::kBoardShare)},
           {"low_coverage", percent(t::kCoverage)},
           {"low_coverage", fmt::format("{} pairs", t::kCoveragePairs)},
           {"too_few_dots", percent(t::kFoundShare)},
           {"board_mismatch", percent(t::kFittingShare)},
           {"calibration_mismatch", fmt::format("{:g} pixels", t::kMisfit)},
           {"calibration_mismatch", percent(t::kMisfitOfWidth)},
           {"calibration_mismatch", fmt::format("{:g} times their scatter", t::kBeyondScatter)},
           {"calibration_mismatch", percent(t::kExplains) + " in all"},
           {"calibration_mismatch", percent(t::kExplainsEach) + " or twice"},
           {"calibration_mismatch", percent(t::kOtherSize)},
           {"calibration_mismatch", percent(t::kCropped)},
           {"ghost_dots", fmt::format("{:g} pixels", t::kGhostPixels)},
           {"ghost_dots", percent(t::kGhostOfPitch)},
           {"ghost_dots", fmt::format("{:g} times", t::kGhostSpreads)},
           {"lenses_exchanged", percent(t::kOtherLens)},
           {"principal_point", percent(t::kOffMiddle)},
           {"baseline_unit", fmt::format("{:g} times", t::kSameLength)},
           {"scale_wrong", percent(t::kScale)},
           {"scale_wrong", fmt::format("{:g} standard errors", t::kScaleSure)},
           {"one_distance", fmt::format("{} pairs", t::kLeastPairs)},
           {"one_distance", percent(t::kSameDistance)},
           {"pair_stands_out", fmt::format("{} pairs", t::kLeastPairs)},
           {"pair_stands_out", fmt::format("{:g} times", t::kStandsOutTimes)},
           {"pair_stands_out", fmt::format("{:g} spreads", t::kStandsOutSpreads)},
           {"noise_floor", fmt::format("{:g} pixels", t::kRowNoise)},
           {"noise_floor", fmt::format("{:g} times", t::kNoiseShare)},
           {"fisheye_raw_pair", percent(t::kFisheyeOffset)}}) {
    const std::size_t row = page.find("\n| `" + code + "` |");  // The first table is that of the thresholds.
    ASSERT_NE(row, std::string::npos) << code;
    EXPECT_NE(page.substr(row + 1, page.find('\n', row + 1) - row).find(words), std::string::npos)
        << code << ": " << words;
  }
}

TEST(ExplanationsKnow, EveryExitCode) {
  for (const char* code : {"0", "1", "2", "3", "4", "130"}) EXPECT_TRUE(explain(std::string("exit ") + code)) << code;
}

TEST(ExplanationsKnow, AllThatABareNumberMayMean) {
  const auto codesOf = [](const char* code) {
    std::vector<std::string> codes;
    for (const Explanation& each : explainAll(code)) codes.push_back(each.code);
    return codes;
  };
  using ::testing::ElementsAre;
  EXPECT_THAT(codesOf("3"), ElementsAre("exit 3", "3"));
  EXPECT_THAT(codesOf("1"), ElementsAre("exit 1", "1", "1 in a pair"));
  EXPECT_THAT(codesOf("2"), ElementsAre("exit 2", "2"));
  EXPECT_THAT(codesOf("130"), ElementsAre("exit 130"));
  EXPECT_THAT(codesOf("too_few_shared"), ElementsAre("-9"));
  EXPECT_THAT(codesOf("exit 4"), ElementsAre("exit 4"));
  EXPECT_TRUE(codesOf("-99").empty());
  EXPECT_TRUE(codesOf("").empty());
}

TEST(ExplanationsKnow, WhatACodeMeansInAPair) {
  EXPECT_EQ(explainPair(1)->name, "measurement_failed");
  EXPECT_EQ(explainPair(-6)->name, "too_few_detected");
  EXPECT_EQ(explainPair(kGroupPointMissing)->name, "group_point_missing");
  EXPECT_FALSE(explainPair(-99));
}

TEST(ExplanationsKnow, EveryStepOfADetection) {
  for (int step = 0; step <= static_cast<int>(kestrune::DetectionStep::kDone); ++step) {
    const char* const name = nameOf(static_cast<kestrune::DetectionStep>(step));
    EXPECT_FALSE(explainAll(name).empty()) << name;
  }
}

TEST(ExplanationsKnow, AWordAsWellAsItsCode) {
  const auto by_name = explain("too_few_shared");
  ASSERT_TRUE(by_name);
  EXPECT_EQ(by_name->code, "-9");
  EXPECT_EQ(explain("-9")->name, "too_few_shared");
  EXPECT_FALSE(explain("-99"));
  EXPECT_FALSE(explain(""));
}

TEST(ExplanationsKnow, WordsOfTheDocumentAndEntriesOfLists) {
  for (const char* word :
       {"pass", "fail", "error", "retry", "pairs", "finished", "given_up", "carried", "triangulation", "rows", "cloud"})
    EXPECT_TRUE(explain(word)) << word;
  EXPECT_EQ(explain("tri_dis[0]")->name, "tri_dis");
  EXPECT_EQ(explain("refined.tri_dis[0]")->name, "tri_dis");
  ASSERT_EQ(explainAll("tri_dis[3]").size(), 1U);
  EXPECT_TRUE(explainAll("nothing[3]").empty());
}

TEST(ExplanationsKnow, AFigureByItsWayThroughTheDocumentAndByALimit) {
  for (const char* way :
       {"summary.dy_means.mean", "summary.refined.dy_means.sd", "summary.figures.dy_means.worst_pair",
        "summary.refined.figures.dy_means.high95", "pairs[7].figures.dy_means", "pairs[0].refined.figures.dy_means",
        "pairs[0].uncertainty.dy_means.low95", "|dy_means|", "|summary.dy_means.mean|", "figures.dy_means"}) {
    ASSERT_TRUE(explain(way)) << way;
    EXPECT_EQ(explain(way)->name, "dy_means") << way;
    EXPECT_EQ(explainAll(way).size(), 1U) << way;
  }
  EXPECT_EQ(explain("|summary.tri_dis[3].max|")->name, "tri_dis");
  for (const char* way : {"summary.dy_mean.mean", "dy_means.tri_rms", "mean", "summary.mean", "..", "|", "[0]"})
    EXPECT_TRUE(explainAll(way).empty()) << way;
  EXPECT_EQ(explain("pairs")->name, "pairs") << "a word of the document itself";
}

TEST(ExplanationsKnow, EveryCause) {
  for (const char* name :
       {"rotation_x", "rotation_y", "rotation_z", "focal_ratio", "row_offset", "baseline_y", "baseline_z", "k1"})
    EXPECT_TRUE(explain(name)) << name;
  EXPECT_EQ(
      explain("rotation_x")->meaning,
      "A cause, in deg: above 0 the right camera looks down by so many degrees; below 0 the right camera looks up "
      "by so many degrees.");
}

TEST(ExplanationsKnow, EveryFigureThatALimitJudges) {
  for (const std::string& name : limitNames()) {
    if (name == "pairs" || name == "finished" || name == "given_up") continue;
    const auto explained = explain(name);
    ASSERT_TRUE(explained) << name;
    EXPECT_FALSE(explained->unit.empty()) << name;
  }
  EXPECT_EQ(explain("dy_means")->meaning, "A figure, in pixels: mean absolute row difference after rectification.");
  const std::string set =
      " is left on the rendered set big_1280 (1280 columns, a board with steps of 20, 1100 to 1200 away).";
  EXPECT_EQ(explain("dy_means")->advice,
            "0 is perfect; with an exact calibration 0.013" + set +
                " The limit 'dy_means<=VALUE' judges it of each pair, 'summary.dy_means.mean<=VALUE' the mean "
                "over the pairs.");
  EXPECT_EQ(explain("tri_dis")->advice,
            "0 is perfect; with an exact calibration 0.16 to 0.24" + set +
                " The limit '|tri_dis|<=VALUE' judges every entry of each pair; '|tri_dis[0]|<=VALUE' its "
                "first entry, '|summary.tri_dis[0].mean|<=VALUE' the mean over the pairs.");
  EXPECT_THAT(explain("allpoints_min")->advice, ::testing::StartsWith("0 is perfect. The limit"));
  EXPECT_EQ(explain("too_few_shared")->unit, "");
}

TEST(ExplanationsAll, GiveLimitsOfFiguresThatParse) {
  const std::regex limit("'([^']*<=)VALUE'");
  int limits = 0;
  for (const Explanation& each : explanations()) {
    if (each.unit.empty()) continue;
    for (std::sregex_iterator found(each.advice.begin(), each.advice.end(), limit), end; found != end;
         ++found, ++limits)
      EXPECT_NO_THROW(requireLimit((*found)[1].str() + "0.5")) << (*found)[0];
  }
  EXPECT_GT(limits, 40);
}

TEST(ExplanationsAll, AreSentencesAndTellWhatToDoWhereSomethingIsWrong) {
  for (const Explanation& each : explanations()) {
    EXPECT_EQ(each.meaning.back(), '.') << each.code;
    const bool is_good = each.name == "success" || each.name == "done";
    EXPECT_EQ(each.advice.empty(), is_good) << each.code;
    if (!is_good) {
      EXPECT_EQ(each.advice.back(), '.') << each.code;
    }
    EXPECT_TRUE(std::regex_match(each.name, std::regex("[A-Za-z][A-Za-z0-9_]*"))) << each.name;
  }
}

TEST(ExplanationsAll, HaveACodeAndAWordOfTheirOwn) {
  std::set<std::string> seen;
  for (const Explanation& each : explanations()) {
    EXPECT_TRUE(seen.insert(each.code).second) << each.code;
    if (each.name != each.code) {
      EXPECT_TRUE(seen.insert(each.name).second) << each.name;
    }
  }
}

}  // namespace
}  // namespace polarline
