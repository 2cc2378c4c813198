#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using polarline::Calibration;
using polarline::ImportOptions;
using testing::HasSubstr;

/// Three cameras in a row: 1 is 0.1 to the right of 0 and 2 another 0.25, without any turn.
std::string chainOfThree() {
  const auto link = [](double distance) {
    return layouts::rows("T_cn_cnm1", layouts::pose(cv::Matx33d::eye(), {-distance, 0, 0}));
  };
  return layouts::kalibrCamera(Rig(), 0, "") + layouts::kalibrCamera(Rig(), 1, link(0.1)) +
         with(layouts::kalibrCamera(Rig(), 1, link(0.25)), "cam1:", "cam2:");
}

double placeOfRight(int left, int right) {
  ImportOptions options;
  options.pair = {left, right};
  return imported({chainOfThree()}, options).calibration.tx;
}

TEST(KalibrPair, IsTheFirstTwoCameras) { EXPECT_DOUBLE_EQ(imported({chainOfThree()}).calibration.tx, -0.1); }

TEST(KalibrPair, FollowsTheChain) {
  EXPECT_DOUBLE_EQ(placeOfRight(0, 2), -0.35);
  EXPECT_DOUBLE_EQ(placeOfRight(1, 2), -0.25);
  EXPECT_DOUBLE_EQ(placeOfRight(2, 0), 0.35);
}

TEST(KalibrPose, GoesOverTheBodyWhereTheChainIsBroken) {
  const auto body = [](double x) { return layouts::rows("T_cam_imu", layouts::pose(cv::Matx33d::eye(), {x, 0, 0})); };
  const std::string text = layouts::kalibrCamera(Rig(), 0, body(0.0)) + layouts::kalibrCamera(Rig(), 1, body(-0.0625)) +
                           with(layouts::kalibrCamera(Rig(), 1, body(-0.5)), "cam1:", "cam2:");
  ImportOptions options;
  options.pair = {1, 2};
  EXPECT_DOUBLE_EQ(imported({text}, options).calibration.tx, -0.4375);
}

TEST(KalibrPose, PrefersTheChain) {
  const std::string both = layouts::rows("T_cn_cnm1", layouts::pose(cv::Matx33d::eye(), {-0.1, 0, 0})) +
                           layouts::rows("T_cam_imu", layouts::pose(cv::Matx33d::eye(), {-0.2, 0, 0}));
  EXPECT_DOUBLE_EQ(
      imported({layouts::kalibrCamera(Rig(), 0, "") + layouts::kalibrCamera(Rig(), 1, both)}).calibration.tx, -0.1);
}

TEST(KalibrLens, MayBeNone) {
  Rig rig;
  rig.D_left.clear();
  rig.D_right.clear();
  const std::string text = layouts::kalibrChain(rig).front();
  const Calibration calibration = imported({with(with(text, "radtan", "none"), "radtan", "none")}).calibration;
  EXPECT_EQ(calibration.type, 0);
  EXPECT_EQ(calibration.left.k[0], 0.0);
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class KalibrRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(KalibrRefused, WithTheKeyAndWhatWasFound) {
  const std::string text = with(layouts::kalibrChain(Rig()).front(), GetParam().from, GetParam().to);
  EXPECT_THAT(refusal({text}), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, KalibrRefused,
    testing::Values(
        Spoiled{"Omni", "camera_model: pinhole", "camera_model: omni",
                "a: cam0: the camera model 'omni' has no exact counterpart"},
        Spoiled{"Fov", "distortion_model: radtan", "distortion_model: fov",
                "a: cam0: the camera model 'pinhole-fov' has no exact counterpart"},
        Spoiled{"NoSecond", "cam1:", "cam2:", "a: has no cam1, but 1 camera(s); the two of a pair were wanted"},
        Spoiled{"NoPose", "T_cn_cnm1", "T_cn", "a: cam1: has neither T_cn_cnm1 nor T_cam_imu"},
        Spoiled{"FourFocals", "[512.25, 511.75, 318.5, 242.125]", "[512.25, 511.75, 318.5]",
                "a: cam0/intrinsics: found 3 numbers; 4 were wanted"},
        Spoiled{"FiveCoefficients", "[-0.28, 0.07,", "[0, -0.28, 0.07,",
                "a: cam0/distortion_coeffs: found 5 numbers; 4 were wanted"},
        Spoiled{"NegativeFocal", "512.25", "-512.25",
                "a: cam0/intrinsics: found the focal length fx = -512.25; one above 0"},
        Spoiled{"NoFocal", "511.75", "0", "a: cam0/intrinsics: found the focal length fy = 0"},
        Spoiled{"NotANumber", "318.5", "nan", "a: cam0/intrinsics[2]: found 'nan'; a finite number was wanted"},
        Spoiled{"Infinite", "318.5", "1e999", "a: cam0/intrinsics[2]: found '1e999'; a finite number was wanted"},
        Spoiled{"Huge", "318.5", "1e10",
                "a: cam0/intrinsics[2]: found '1e10'; a calibration holds no number beyond 1e9"},
        Spoiled{"Word", "318.5", "wide", "a: cam0/intrinsics[2]: found 'wide'; a number was wanted"},
        Spoiled{"NoSize", "resolution: [640, 480]", "pixels: [640, 480]", "a: cam0: has no resolution"},
        Spoiled{"HalfAPixel", "[640, 480]", "[640.5, 480]",
                "a: cam0/resolution: found an image of 640.5 x 480; whole sides"},
        Spoiled{"NegativeSize", "[640, 480]", "[640, -480]", "a: cam0/resolution: found an image of 640 x -480"},
        Spoiled{"HugeSize", "[640, 480]", "[65536, 480]", "a: cam0/resolution: found an image of 65536 x 480"},
        Spoiled{"LastRow", "- [0, 0, 0, 1]", "- [0, 0, 1, 1]",
                "a: cam1/T_cn_cnm1: ends with the row 0 0 1 1; 0 0 0 1 was wanted"},
        Spoiled{"ThreeRows", "  - [0, 0, 0, 1]\n", "", "a: cam1/T_cn_cnm1: found 3 rows; 4 x 4 was wanted"},
        Spoiled{"ShortRow", "- [0, 0, 0, 1]", "- [0, 0, 1]", "a: cam1/T_cn_cnm1[3]: found 3 numbers; 4 were wanted"},
        Spoiled{"KeyTwice", "  rostopic: /cam0/image_raw\n", "  resolution: [1, 1]\n",
                "a: line 8: has the key 'resolution' twice"}),
    [](const auto& each) { return each.param.name; });

TEST(KalibrFiles, AreOne) {
  const std::string text = layouts::kalibrChain(Rig()).front();
  EXPECT_EQ(refusal({text, text}), "b: is one file too many; one camchain was wanted");
}

}  // namespace
