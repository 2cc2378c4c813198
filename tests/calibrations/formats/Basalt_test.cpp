#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using polarline::Calibration;
using testing::HasSubstr;

std::string text() { return layouts::basalt(fisheyeRig()).front(); }

/// Two cameras side by side in the body, the right one at x = 0.1, the left one at 0.02; both turned by 90 degrees
/// about z, so that the camera's x is the body's y.
std::string sideways(const char* scaled) {
  const auto pose = [scaled](double x) {
    return fmt::format(R"({{"px": {}, "py": 0, "pz": 0, "qx": 0, "qy": 0, "qz": {}, "qw": {}}})", x, scaled, scaled);
  };
  const std::string camera =
      R"({"camera_type": "pinhole", "intrinsics": {"fx": 400, "fy": 400, "cx": 320, "cy": 240}})";
  return fmt::format(R"({{"T_imu_cam": [{}, {}], "intrinsics": [{}, {}]}})", pose(0.02), pose(0.1), camera, camera);
}

TEST(BasaltPose, IsThatOfTheCameraInTheBody) {
  const Calibration calibration = imported({sideways("0.7071067811865476")}).calibration;
  EXPECT_NEAR(calibration.tx, 0.0, 1e-16);  // Right from left: Rz(90)' (0.02 - 0.1, 0, 0) = (0, 0.08, 0)
  EXPECT_NEAR(calibration.ty, 0.08, 1e-16);
  EXPECT_NEAR(calibration.rz, 0.0, 1e-15);
}

TEST(BasaltPose, NormalisesTheQuaternion) {
  EXPECT_NEAR(imported({sideways("0.7071")}).calibration.ty, 0.08, 1e-16);
  EXPECT_THAT(refusal({sideways("0.7")}),
              HasSubstr("a: T_imu_cam[0]: found a quaternion of length 0.989949; 1 was wanted"));
}

TEST(BasaltRoot, NeedNotBeWrapped) {
  std::string plain = text().substr(std::string(R"({"value0": )").size());
  plain.pop_back();
  EXPECT_EQ(imported({plain}).calibration.tx, imported({text()}).calibration.tx);
}

TEST(BasaltSize, NeedNotBeThere) {
  EXPECT_THAT(codesOf(imported({with(text(), "resolution", "pixels")})),
              testing::ElementsAre("baseline_in_metres", "no_image_size", "no_image_size"));
}

TEST(BasaltPair, MayBeChosen) {
  polarline::ImportOptions options;
  options.pair = {1, 0};
  EXPECT_GT(imported({text()}, options).calibration.tx, 0.06);
  options.pair = {0, 2};
  EXPECT_THAT(refusal({text()}, options), HasSubstr("a: value0/intrinsics: has no camera 2, but 2 camera(s)"));
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class BasaltRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(BasaltRefused, WithTheKeyAndWhatWasFound) {
  EXPECT_THAT(refusal({with(text(), GetParam().from, GetParam().to)}), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, BasaltRefused,
    testing::Values(Spoiled{"DoubleSphere", "kb4", "ds", "a: value0/intrinsics[0]: the camera model 'ds' has no exact"},
                    Spoiled{"Unified", "kb4", "eucm", "the camera model 'eucm' has no exact counterpart"},
                    Spoiled{"NoK4", "\"k4\"", "\"k5\"", "a: value0/intrinsics[0]/intrinsics: has no k4"},
                    Spoiled{"Null", "\"fx\": 512.25", "\"fx\": null", "a: value0/intrinsics[0]/intrinsics: has no fx"},
                    Spoiled{"Text", "\"fx\": 512.25", "\"fx\": \"wide\"",
                            "intrinsics/fx: found 'wide'; a number was wanted"},
                    Spoiled{"Cut", "}", "", "a: is no JSON: parse error at line 1"}),
    [](const auto& each) { return each.param.name; });

TEST(BasaltFiles, AreOne) {
  EXPECT_EQ(refusal({text(), text()}), "b: is one file too many; one calibration was wanted");
}

}  // namespace
