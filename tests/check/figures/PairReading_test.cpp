#include "check/figures/PairReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "PolarLinePrecision/Status.h"
#include "polar/results/PairStatus.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct PairReadingOf : ::testing::Test {
  PairEvaluator evaluator{std::make_shared<const PolarConfig>()};
  PairReading reading;

  void nextPair() {
    evaluator.figures.measured.reset();
    evaluator.seen = {};
    evaluator.errorText.clear();
  }
};

TEST_F(PairReadingOf, FiguresTakesWhatThePairMeasured) {
  evaluator.figures.dy_means = 0.1F;
  evaluator.figures.space_rms = 0.1;
  evaluator.figures.tri_dis = {1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F, 8.0F};
  evaluator.figures.setMeasured(FigureGroup::kRows);
  evaluator.figures.setMeasured(FigureGroup::kSpace);
  evaluator.figures.setMeasured(FigureGroup::kTriDis);
  const PairCheck pair = reading.read(true, 0, evaluator);
  EXPECT_TRUE(pair.finished);
  const Figure& single = *pair.figure("dy_means");
  EXPECT_THAT(single.values, ElementsAre(static_cast<double>(0.1F)));
  EXPECT_TRUE(single.is_single);
  EXPECT_TRUE(single.is_own);
  EXPECT_STREQ(single.unit, "pixels");
  EXPECT_FALSE(pair.figure("space_rms")->is_single);
  EXPECT_THAT(pair.figure("space_rms")->values, ElementsAre(0.1));
  EXPECT_TRUE(pair.figure("tri_dis")->is_list);
  EXPECT_THAT(pair.figure("tri_dis")->values, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
  EXPECT_EQ(pair.figure("none"), nullptr);
  EXPECT_EQ(pair.figure("detect_canvas"), nullptr);
}

TEST_F(PairReadingOf, FiguresOfAnEarlierPairAreCarriedAndNotShown) {
  evaluator.figures.dy_means = 0.5F;
  evaluator.figures.setMeasured(FigureGroup::kRows);
  EXPECT_FALSE(reading.read(true, 0, evaluator).figure("dy_means")->is_carried);
  nextPair();
  const PairCheck second = reading.read(true, 0, evaluator);
  EXPECT_TRUE(second.figure("dy_means")->is_carried);
  EXPECT_FALSE(second.figure("dy_means")->is_own);
  EXPECT_TRUE(second.figure("dy_means")->values.empty());
  EXPECT_FALSE(second.figure("tri_rms")->is_carried);  // Nobody measured it.
  nextPair();
  evaluator.figures.setMeasured(FigureGroup::kRows);
  const PairCheck third = reading.read(true, 0, evaluator);
  EXPECT_FALSE(third.figure("dy_means")->is_carried);
  EXPECT_THAT(third.figure("dy_means")->values, ElementsAre(0.5));
}

TEST_F(PairReadingOf, FiguresOfAClearedListAreNotCarried) {
  evaluator.figures.frameValues = {1.0, 2.0};
  evaluator.figures.setMeasured(FigureGroup::kFrame);
  EXPECT_THAT(reading.read(true, 0, evaluator).figure("frameValues")->values, ElementsAre(1, 2));
  nextPair();
  EXPECT_TRUE(reading.read(true, 0, evaluator).figure("frameValues")->is_carried);
  evaluator.figures.frameValues.clear();
  EXPECT_FALSE(reading.read(true, 0, evaluator).figure("frameValues")->is_carried);
}

TEST_F(PairReadingOf, FiguresOfAPairGivenUpAreCarriedToo) {
  evaluator.figures.setMeasured(FigureGroup::kResiduals);
  reading.read(false, polar_status::kTooFewShared, evaluator);
  nextPair();
  EXPECT_TRUE(reading.read(true, 0, evaluator).figure("tri_rms")->is_carried);
}

TEST_F(PairReadingOf, PointsHasAnEntryForEachIdOfEitherPair) {
  evaluator.seen.raw = {{5, {1, 2}, {3, 4}}, {9, {5, 6}, {7, 8}}};
  evaluator.seen.positions = {{10, 11, 12}};
  evaluator.seen.residuals = {0.5F};
  evaluator.seen.rectified = {{2, {20, 21.5F}, {22, 21}}, {9, {30, 31}, {32, 33.25F}}};
  const PairPoints points = reading.read(true, 0, evaluator).points;
  const auto isNone = [](float value) { return std::isnan(value); };
  EXPECT_THAT(points.id, ElementsAre(2, 5, 9));
  EXPECT_THAT(points.left_x, ElementsAre(::testing::Truly(isNone), 1, 5));
  EXPECT_THAT(points.left_y, ElementsAre(::testing::Truly(isNone), 2, 6));
  EXPECT_THAT(points.right_x, ElementsAre(::testing::Truly(isNone), 3, 7));
  EXPECT_THAT(points.right_y, ElementsAre(::testing::Truly(isNone), 4, 8));
  EXPECT_THAT(points.x, ElementsAre(::testing::Truly(isNone), 10, ::testing::Truly(isNone)));
  EXPECT_THAT(points.y, ElementsAre(::testing::Truly(isNone), 11, ::testing::Truly(isNone)));
  EXPECT_THAT(points.z, ElementsAre(::testing::Truly(isNone), 12, ::testing::Truly(isNone)));
  EXPECT_THAT(points.residual, ElementsAre(::testing::Truly(isNone), 0.5, ::testing::Truly(isNone)));
  EXPECT_THAT(points.rectified_left_x, ElementsAre(20, ::testing::Truly(isNone), 30));
  EXPECT_THAT(points.rectified_left_y, ElementsAre(21.5, ::testing::Truly(isNone), 31));
  EXPECT_THAT(points.rectified_right_x, ElementsAre(22, ::testing::Truly(isNone), 32));
  EXPECT_THAT(points.rectified_right_y, ElementsAre(21, ::testing::Truly(isNone), 33.25));
  EXPECT_THAT(points.dy, ElementsAre(0.5, ::testing::Truly(isNone), -2.25));
}

TEST_F(PairReadingOf, ReasonNamesTheSideTheCountAndTheStep) {
  evaluator.seen.measurement = polar_status::kTooFewDetected;
  evaluator.seen.found = {40, 3};
  FailedDetection failed;
  failed.size = {640, 512};
  failed.trace.step = kestrune::DetectionStep::kMarkers;
  failed.trace.classes.rings = 2;
  evaluator.seen.failed = {nullptr, std::make_shared<FailedDetection>(failed)};
  evaluator.seen.evaluation = "triangulation";
  const PairCheck pair = reading.read(false, polar_status::kTooFewDetected, evaluator);
  EXPECT_FALSE(pair.finished);
  EXPECT_EQ(pair.found_left, 40U);
  EXPECT_EQ(pair.found_right, 3U);
  EXPECT_EQ(pair.reason.code, polar_status::kTooFewDetected);
  EXPECT_EQ(pair.reason.side, "right");
  EXPECT_EQ(pair.reason.step, "markers");
  EXPECT_THAT(pair.reason.text, StartsWith("3 dots were found in the right picture; 6 are needed: "));
  EXPECT_THAT(pair.reason.text, HasSubstr("ring")) << "the words of the step that failed";
  evaluator.seen.found = {5, 0};
  evaluator.seen.failed = {};
  const PairCheck left = reading.read(false, polar_status::kTooFewDetected, evaluator);
  EXPECT_EQ(left.reason.side, "left");
  EXPECT_EQ(left.reason.step, "triangulation");
  EXPECT_THAT(left.reason.text, HasSubstr("5 dots were found in the left picture"));
}

TEST_F(PairReadingOf, ReasonOfAFailedMeasurementIsTheMeasurementsOwn) {
  evaluator.seen.measurement = polar_status::kTooFewShared;
  evaluator.seen.evaluation = "rows";
  evaluator.seen.rectified = {{1, {}, {}}, {2, {}, {}}};
  const Reason reason = reading.read(false, kMeasurementFailed, evaluator).reason;
  EXPECT_EQ(reason.code, polar_status::kTooFewShared);
  EXPECT_EQ(reason.step, "rows");
  EXPECT_EQ(reason.side, "");
  EXPECT_EQ(reason.text, "too few dots are in both pictures: 0 were found in the left one, 0 in the right one");
}

TEST_F(PairReadingOf, ReasonSaysOnlyWhichOfTwoCausesHolds) {
  evaluator.seen.evaluation = "triangulation";
  evaluator.seen.found = {40, 40};
  const Reason apart = reading.read(false, polar_status::kTooFewShared, evaluator).reason;
  EXPECT_FALSE(apart.of_residuals);
  EXPECT_EQ(apart.text, "too few dots are in both pictures: 40 were found in the left one, 40 in the right one");
  evaluator.seen.raw = {{1, {}, {}}, {2, {}, {}}};
  const Reason residuals = reading.read(false, polar_status::kTooFewShared, evaluator).reason;
  EXPECT_TRUE(residuals.of_residuals);
  EXPECT_EQ(residuals.text, "2 dots are in both pictures, and no residual could be taken: all are above 5 pixels");
}

TEST_F(PairReadingOf, ReasonSaysWhenARectifiedPictureIsMeant) {
  evaluator.seen.measurement = polar_status::kTooFewDetected;
  evaluator.seen.evaluation = "rows";
  const Reason reason = reading.read(false, kMeasurementFailed, evaluator).reason;
  EXPECT_TRUE(reason.of_rectified);
  EXPECT_THAT(reason.text, StartsWith("0 dots were found in the rectified left picture; 6 are needed"));
  evaluator.seen.evaluation = "triangulation";
  EXPECT_FALSE(reading.read(false, polar_status::kTooFewDetected, evaluator).reason.of_rectified);
}

TEST_F(PairReadingOf, ReasonIsTheEvaluationsTextWhereItHasOne) {
  evaluator.errorText = "what failed";
  EXPECT_EQ(reading.read(false, polar_status::kOutlier, evaluator).reason.text, "what failed");
  EXPECT_EQ(reading.read(false, kGroupPointMissing, evaluator).reason.text,
            "A dot of a Cal_ID_DIS pair was not seen in both pictures.");
  evaluator.errorText.clear();
  EXPECT_THAT(reading.read(false, polar_status::kOutlier, evaluator).reason.text, HasSubstr("stands out"));
  // Not the text of a run's status 1, which is another thing.
  EXPECT_EQ(reading.read(false, kMeasurementFailed, evaluator).reason.text,
            "The measurement of the rectified pair failed.");
}

TEST_F(PairReadingOf, ReasonNamesTheDotThatAnEvaluationWantsAndWasNotSeen) {
  PolarConfig config;
  config.TriPoint1_ID = 9999;
  config.TriPoint2_ID = 5;
  config.PolPoint2_ID = 8888;
  PairEvaluator wanting(std::make_shared<const PolarConfig>(config));
  wanting.seen.raw = {{5, {}, {}}};
  const auto textWith = [&](const char* evaluation, const char* text) {
    wanting.seen.evaluation = evaluation;
    wanting.errorText = text;
    return reading.read(false, polar_status::kPointMissing, wanting).reason.text;
  };
  EXPECT_EQ(textWith("triangulation", "Fail detect foursix method point1"),
            "dot 9999 (TriPoint1_ID) was not seen in both pictures (Fail detect foursix method point1)");
  EXPECT_EQ(textWith("triangulation", "Fail detect foursix method point2"),
            "dot 5 (TriPoint2_ID) lies at the origin (Fail detect foursix method point2)");
  EXPECT_EQ(textWith("cloud", "Fail detect foursix method point2"),
            "dot 8888 (PolPoint2_ID) was not seen in both pictures (Fail detect foursix method point2)");
  EXPECT_EQ(textWith("cloud", "another text"), "another text");
}

}  // namespace
}  // namespace polarline
