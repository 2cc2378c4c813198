#include "diagnose/causes/Causes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tools/causes/CauseCoverage.h"
#include "tools/causes/CentreErrors.h"
#include "tools/causes/SeenScene.h"

namespace {

using polarline::Cause;
using polarline::Diagnosis;
using testing::HasSubstr;
using testing::IsEmpty;

const Cause* causeNamed(const Diagnosis& diagnosis, const std::string& name) {
  for (const Cause& cause : diagnosis.causes) {
    if (cause.name == name) return &cause;
  }
  return nullptr;
}

struct OneCause {
  const char* name;
  double value;
  const char* words;
};

class CausesAlone : public testing::TestWithParam<std::tuple<OneCause, LensModel>> {};

TEST_P(CausesAlone, IsNamedWithItsSignAndSize) {
  const auto& [one, model] = GetParam();
  for (const double sign : {1.0, -1.0}) {
    SeenScene seen(model);
    seen.misalignment.*misalignmentField(one.name) = sign * one.value;
    seen.noise = OwnErrors(0.005, 3);
    const Diagnosis diagnosis = diagnoseCauses(seen.seen(twoDistances())).diagnosis;
    const Cause* const cause = causeNamed(diagnosis, one.name);
    ASSERT_NE(cause, nullptr) << diagnosis.text;
    EXPECT_NEAR(cause->value, sign * one.value, 3.0 * cause->sd);
    EXPECT_GT(cause->share, 0.9) << diagnosis.text;
    EXPECT_LT(diagnosis.rows_after, 0.0065);
    if (sign > 0.0) {
      EXPECT_THAT(diagnosis.text, HasSubstr(one.words));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, CausesAlone,
    testing::Combine(
        testing::Values(OneCause{"rotation_x", 0.1, "right camera looks down by 0.1"},
                        OneCause{"rotation_y", 0.15, "right camera looks to the left by 0.1"},
                        OneCause{"rotation_z", 0.1, "its picture turns clockwise"},
                        OneCause{"focal_ratio", 0.002, "% longer"}, OneCause{"row_offset", 2.0, "px lower"},
                        OneCause{"baseline_y", 0.5, "board units higher"},
                        OneCause{"baseline_z", 0.6, "board units further back"}, OneCause{"k1", 0.01, "more"}),
        testing::Values(LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye, LensModel::kPoly)));

TEST(CausesAligned, AreNone) {
  SeenScene seen(LensModel::kBrownEight);
  seen.noise = OwnErrors(0.02, 5);
  const Diagnosis diagnosis = diagnoseCauses(seen.seen(twoDistances())).diagnosis;
  EXPECT_THAT(diagnosis.causes, IsEmpty());
  EXPECT_THAT(diagnosis.text, HasSubstr("No cause is needed: the rows differ by 0.02"));
  EXPECT_FALSE(diagnosis.pattern_left);
  EXPECT_EQ(diagnosis.rows_after, diagnosis.rows_before);
  EXPECT_FALSE(diagnosis.corrected);
}

TEST(CausesInPairs, AreBothNamed) {
  const std::vector<std::pair<OneCause, OneCause>> pairs{{{"rotation_x", 0.1, ""}, {"rotation_z", -0.1, ""}},
                                                         {{"row_offset", 1.5, ""}, {"rotation_x", 0.12, ""}},
                                                         {{"focal_ratio", 0.002, ""}, {"baseline_z", 0.6, ""}},
                                                         {{"baseline_y", 0.4, ""}, {"row_offset", -2.0, ""}},
                                                         {{"k1", 0.008, ""}, {"rotation_y", 0.15, ""}}};
  for (const auto& [one, other] : pairs) {
    SeenScene seen(LensModel::kBrownEight);
    for (const OneCause* cause : {&one, &other}) seen.misalignment.*misalignmentField(cause->name) = cause->value;
    seen.noise = OwnErrors(0.005, 9);
    const Diagnosis diagnosis = diagnoseCauses(seen.seen(twoDistances())).diagnosis;
    for (const OneCause* cause : {&one, &other}) {
      const Cause* const named = causeNamed(diagnosis, cause->name);
      ASSERT_NE(named, nullptr) << cause->name << ": " << diagnosis.text;
      EXPECT_NEAR(named->value, cause->value, 3.0 * named->sd) << cause->name;
    }
    EXPECT_LT(diagnosis.rows_after, 0.0065);
  }
}

/// A camera that looks down and one whose principal point is off see a distant board of few degrees alike.
TEST(CausesNotToldApart, BearOneGroupWithWhatWouldTellThemApart) {
  SeenScene seen(LensModel::kBrownFive);
  seen.board.step = 12.0;
  seen.misalignment.rotation_x = 0.1;
  seen.noise = OwnErrors(0.02, 10);
  const Diagnosis diagnosis = diagnoseCauses(seen.seen({{0.0, 0.0, 0.0, 0.45}})).diagnosis;
  const Cause* const turn = causeNamed(diagnosis, "rotation_x");
  const Cause* const offset = causeNamed(diagnosis, "row_offset");
  ASSERT_NE(turn, nullptr) << diagnosis.text;
  ASSERT_NE(offset, nullptr) << diagnosis.text;
  EXPECT_GT(turn->group, 0);
  EXPECT_EQ(turn->group, offset->group);
  EXPECT_NEAR(turn->value, 0.1, 3.0 * turn->sd);
  EXPECT_NEAR(offset->value, 0.0, 3.0 * offset->sd);
  EXPECT_THAT(diagnosis.text, HasSubstr("do not tell"));
  EXPECT_THAT(diagnosis.text, HasSubstr("at two distances"));
}

TEST(CausesWithOutliers, AreFoundAllTheSame) {
  SeenScene seen(LensModel::kBrownEight);
  seen.misalignment.rotation_z = 0.1;
  seen.noise = OwnErrors(0.01, 13);
  SeenSet set = seen.seen(twoDistances());
  for (SeenPair& pair : set.pairs) {
    for (std::size_t k = 0; k < pair.dots.size(); k += 20) pair.dots[k].right += cv::Point2d(1.5, k % 40 == 0 ? 3 : 5);
  }
  const Diagnosis diagnosis = diagnoseCauses(set).diagnosis;
  ASSERT_EQ(diagnosis.causes.size(), 1U) << diagnosis.text;
  EXPECT_EQ(diagnosis.causes[0].name, "rotation_z");
  EXPECT_NEAR(diagnosis.causes[0].value, 0.1, 3.0 * diagnosis.causes[0].sd);
  EXPECT_LT(diagnosis.causes[0].sd, 0.002);
}

/// The corrected calibration has the rows of the cameras that took the pictures.
TEST(CausesCorrected, MakeTheRowsThoseOfTheTrueCameras) {
  for (const LensModel model : {LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye}) {
    SeenScene seen(model);
    seen.misalignment = {0.2, -0.1, 0.15, -0.002, 3.0, 0.5, 0.5, 0.004};
    seen.noise = OwnErrors(0.01, 14);
    SeenSet set = seen.seen(twoDistances());
    const Diagnosis diagnosis = diagnoseCauses(set).diagnosis;
    ASSERT_TRUE(diagnosis.corrected);
    const polarline::Calibration& corrected = *diagnosis.corrected;
    EXPECT_EQ(corrected.type, static_cast<int>(model));
    EXPECT_EQ(corrected.left.fx, set.calib.left.intrinsics[0]);
    const polarline::Camera& right = corrected.right;
    set.calib.right.intrinsics = {right.fx,   right.fy,   right.cx,   right.cy,   right.k[0], right.k[1],
                                  right.k[2], right.k[3], right.k[4], right.k[5], right.p1,   right.p2};
    set.calib.extrinsics = {corrected.rx, corrected.ry, corrected.rz, corrected.tx, corrected.ty, corrected.tz};
    const Diagnosis again = diagnoseCauses(set).diagnosis;
    EXPECT_NEAR(again.rows_before, diagnosis.rows_after, 2e-3 * diagnosis.rows_after);  // By its focal length.
    EXPECT_THAT(again.causes, IsEmpty());
  }
}

TEST(CausesOfAPolynomialLens, AreToldWithoutACalibrationThatCouldNotHoldThem) {
  SeenScene seen(LensModel::kPoly);
  seen.misalignment.rotation_x = 0.1;
  const Diagnosis diagnosis = diagnoseCauses(seen.seen(twoDistances())).diagnosis;
  EXPECT_FALSE(diagnosis.causes.empty());
  EXPECT_FALSE(diagnosis.corrected);
}

/// A wave that no misalignment makes.
TEST(CausesWithAPattern, SayThatItIsLeft) {
  SeenScene seen(LensModel::kBrownEight);
  SeenSet set = seen.seen(twoDistances());
  for (SeenPair& pair : set.pairs) {
    for (SeenDot& dot : pair.dots) dot.right.y += 0.05 * std::sin(dot.right.x / 130.0) * std::cos(dot.right.y / 130.0);
  }
  const Diagnosis diagnosis = diagnoseCauses(set).diagnosis;
  EXPECT_TRUE(diagnosis.pattern_left);
  EXPECT_THAT(diagnosis.text, HasSubstr("alike in neighbouring dots"));
}

// --- Nothing to go by

void expectNoCause(const SeenSet& set, const char* reason) {
  const Diagnosis diagnosis = diagnoseCauses(set).diagnosis;
  EXPECT_THAT(diagnosis.causes, IsEmpty());
  EXPECT_THAT(diagnosis.text, HasSubstr(reason));
  EXPECT_TRUE(std::isnan(diagnosis.rows_before));
  EXPECT_FALSE(diagnosis.corrected);
}

SeenSet someSet() {
  SeenScene seen(LensModel::kBrownEight);
  seen.misalignment.rotation_x = 0.1;
  seen.noise = OwnErrors(0.01, 15);
  return seen.seen(twoDistances());
}

TEST(CausesDegenerate, NoPairs) {
  SeenSet set = someSet();
  set.pairs.clear();
  expectNoCause(set, "0 dots were seen in both pictures; 20 were wanted");
}

TEST(CausesDegenerate, OneDot) {
  SeenSet set = someSet();
  set.pairs.resize(1);
  set.pairs[0].dots.resize(1);
  expectNoCause(set, "1 dots were seen in both pictures; 20 were wanted");
}

TEST(CausesDegenerate, NoNumbers) {
  SeenSet set = someSet();
  for (SeenPair& pair : set.pairs) {
    for (SeenDot& dot : pair.dots) dot.left.x = std::numeric_limits<double>::quiet_NaN();
  }
  expectNoCause(set, "0 dots");
}

TEST(CausesDegenerate, CamerasInOnePlace) {
  SeenSet set = someSet();
  set.calib.extrinsics[3] = set.calib.extrinsics[4] = set.calib.extrinsics[5] = 0.0;
  expectNoCause(set, "side by side");
}

TEST(CausesDegenerate, OneCameraAboveTheOther) {
  SeenSet set = someSet();
  std::swap(set.calib.extrinsics[3], set.calib.extrinsics[4]);
  expectNoCause(set, "side by side");
}

/// A line, or one place, bounds few causes: what is told is finite, and the rows after are no worse.
void expectSomethingFinite(const SeenSet& set) {
  const Diagnosis diagnosis = diagnoseCauses(set).diagnosis;
  EXPECT_FALSE(diagnosis.text.empty());
  EXPECT_LE(diagnosis.rows_after, diagnosis.rows_before);
  for (const Cause& cause : diagnosis.causes) {
    EXPECT_TRUE(std::isfinite(cause.value)) << cause.name;
    EXPECT_TRUE(std::isfinite(cause.sd)) << cause.name;
    EXPECT_TRUE(std::isfinite(cause.share)) << cause.name;
    EXPECT_GT(cause.group, 0) << cause.name;
  }
  const Cause* const turn = causeNamed(diagnosis, "rotation_x");
  if (turn != nullptr) {
    EXPECT_NEAR(turn->value, 0.1, 3.0 * turn->sd);
  }
}

TEST(CausesDegenerate, DotsOnALine) {
  SeenSet set = someSet();
  set.pairs.resize(2);
  for (SeenPair& pair : set.pairs) std::erase_if(pair.dots, [](const SeenDot& dot) { return dot.id / 17 != 6; });
  expectSomethingFinite(set);
}

TEST(CausesDegenerate, DotsInOnePlace) {
  SeenSet set = someSet();
  for (SeenPair& pair : set.pairs) {
    for (SeenDot& dot : pair.dots) dot = set.pairs[0].dots[40];
  }
  expectSomethingFinite(set);
}

TEST(CausesOfExactDots, OfAnAlignedPairAreNone) {
  const Diagnosis diagnosis = diagnoseCauses(SeenScene(LensModel::kBrownFive).seen(twoDistances())).diagnosis;
  EXPECT_THAT(diagnosis.causes, IsEmpty()) << diagnosis.text;
  EXPECT_LT(diagnosis.rows_before, 1e-6);
}

// --- Many sets

/// Each kind of lens with each number of pairs, with two kinds of errors of the centres.
TEST(CausesOfManySets, AreWithinThreeStandardErrors) {
  using causes::CauseCoverage;
  const CauseCoverage single = causes::coverageOf(causes::setKind("some_single"), 36);
  const CauseCoverage shared = causes::coverageOf(causes::setKind("some_shared"), 72);
  EXPECT_GT(single.named, 60);
  EXPECT_GT(shared.named, 120);
  EXPECT_LE(single.beyond_three + shared.beyond_three, 0.03 * (single.named + shared.named));
  EXPECT_EQ(single.rows_too_large + shared.rows_too_large, 0);
  EXPECT_EQ(single.unsure_alone + shared.unsure_alone, 0);
}

TEST(CausesOfManySets, AreNotMadeUpForAlignedCameras) {
  EXPECT_LE(causes::coverageOf(causes::setKind("aligned_single"), 36).sets_with_a_false_one +
                causes::coverageOf(causes::setKind("aligned_shared"), 36).sets_with_a_false_one,
            2);
}

}  // namespace
