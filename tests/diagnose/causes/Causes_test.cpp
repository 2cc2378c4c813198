#include "diagnose/causes/Causes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "SeenScene.h"

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

/// A field of the renderer's misalignment by the name of the cause.
double scene::Misalignment::*fieldOf(const std::string& name) {
  using M = scene::Misalignment;
  if (name == "rotation_x") return &M::rotation_x;
  if (name == "rotation_y") return &M::rotation_y;
  if (name == "rotation_z") return &M::rotation_z;
  if (name == "focal_ratio") return &M::focal_ratio;
  if (name == "row_offset") return &M::row_offset;
  if (name == "baseline_y") return &M::baseline_y;
  return name == "baseline_z" ? &M::baseline_z : &M::k1;
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
    seen.misalignment.*fieldOf(one.name) = sign * one.value;
    seen.noise = OwnErrors(0.005, 3);
    const Diagnosis diagnosis = diagnoseCauses(seen.seen(twoDistances()));
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
                        OneCause{"focal_ratio", 0.002, "0.2 % longer"}, OneCause{"row_offset", 2.0, "px lower"},
                        OneCause{"baseline_y", 0.5, "board units higher"},
                        OneCause{"baseline_z", 0.6, "board units further back"}, OneCause{"k1", 0.01, "more"}),
        testing::Values(LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye, LensModel::kPoly)));

TEST(CausesAligned, AreNone) {
  SeenScene seen(LensModel::kBrownEight);
  seen.noise = OwnErrors(0.02, 5);
  const Diagnosis diagnosis = diagnoseCauses(seen.seen(twoDistances()));
  EXPECT_THAT(diagnosis.causes, IsEmpty());
  EXPECT_THAT(diagnosis.text, HasSubstr("No cause is needed: the rows differ by 0.02"));
  EXPECT_FALSE(diagnosis.pattern_left);
  EXPECT_EQ(diagnosis.rows_after, diagnosis.rows_before);
  EXPECT_FALSE(diagnosis.corrected);
}

}  // namespace
