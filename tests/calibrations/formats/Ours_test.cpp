#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using polarline::Calibration;
using polarline::ImportOptions;
using testing::HasSubstr;

std::string ours(const Rig& rig = rationalRig()) {
  ImportOptions options;
  options.model = rig.isFisheye ? "fisheye" : "";
  return polarline::calibrationJson(imported(layouts::basalt(rig), options).calibration);
}

TEST(OursLens, IsBrownWhereOnlyBrownHasSuchCoefficients) {
  const polarline::ImportedCalibration found = imported({ours()});
  EXPECT_EQ(found.format, "polarline");
  EXPECT_EQ(found.calibration.type, 1);
}

TEST(OursLens, IsAskedForOtherwise) {
  EXPECT_THAT(refusal({ours(fisheyeRig())}), HasSubstr("a: may be of a Brown or of a fisheye lens"));
  ImportOptions options;
  options.model = "fisheye";
  EXPECT_EQ(imported({ours(fisheyeRig())}, options).calibration.type, 2);
  options.model = "brown";
  EXPECT_EQ(imported({ours(fisheyeRig())}, options).calibration.type, 1);  // K4 is a denominator then.
}

TEST(OursLens, IsNoFisheyeWithTangentialCoefficients) {
  ImportOptions options;
  options.model = "fisheye";
  EXPECT_EQ(refusal({ours()}, options), "a: has K5, K6, P1 or P2, which no fisheye has");
}

TEST(OursMembers, AreNoughtWhereTheyAreNotThere) {
  const std::string text =
      R"({"IR_L": {"Fx": 500, "Fy": 501, "P1": 0.01}, "IR_R": {"Fx": 502, "Fy": 503, "Rotate": {"RZ": 0.25},
      "Translate": {"TX": -60}}, "RGB": {}})";
  const Calibration calibration = imported({text}).calibration;
  EXPECT_EQ(calibration.left.fy, 501);
  EXPECT_EQ(calibration.right.k[0], 0.0);
  EXPECT_NEAR(calibration.rz, 0.25, 1e-16);
  EXPECT_EQ(calibration.tx, -60.0);
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class OursRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(OursRefused, WithTheKeyAndWhatWasFound) {
  EXPECT_THAT(refusal({with(ours(), GetParam().from, GetParam().to)}), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, OursRefused,
    testing::Values(Spoiled{"Depth", "\"RGB\": {}", "\"DEPTH\": {}", "a: DEPTH: is a depth camera"},
                    Spoiled{"NoRight", "IR_R", "IR_X", "a: has no IR_R"},
                    Spoiled{"NoRotation", "Rotate", "Turn", "a: IR_R: has no Rotate"},
                    Spoiled{"NoTranslation", "Translate", "Move", "a: IR_R: has no Translate"},
                    Spoiled{"NoFocal", "\"Fx\"", "\"fx\"", "a: IR_L: found the focal length fx = 0"}),
    [](const auto& each) { return each.param.name; });

TEST(OursRefusedOptions, AreThePair) {
  ImportOptions options;
  options.pair = {0, 1};
  EXPECT_THAT(refusal({ours()}, options), HasSubstr("--pair: is not for our own files"));
}

}  // namespace
