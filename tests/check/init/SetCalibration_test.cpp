#include "check/init/SetCalibration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"
#include "support/TempFolder.h"

namespace {

using polarline::ImportOptions;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const char* const kOurs = R"({"IR_L": {"Fx": 600, "Fy": 601, "Cx": 319.5, "Cy": 239.5, "K1": -0.1},
  "IR_R": {"Fx": 602, "Fy": 603, "Cx": 320, "Cy": 240, "K1": -0.1,
           "Rotate": {"RX": 0, "RY": 0, "RZ": 0}, "Translate": {"TX": -60, "TY": 0, "TZ": 0}}, "RGB": {}})";

const char* const kOpenCv = R"(%YAML:1.0
---
image_width: 640
image_height: 480
M1: !!opencv-matrix
   { rows: 3, cols: 3, dt: d, data: [ 600., 0., 320., 0., 600., 240., 0., 0., 1. ] }
D1: !!opencv-matrix
   { rows: 1, cols: 8, dt: d, data: [ 0.1, 0., 0., 0., 0., 0.01, 0., 0. ] }
M2: !!opencv-matrix
   { rows: 3, cols: 3, dt: d, data: [ 600., 0., 320., 0., 600., 240., 0., 0., 1. ] }
D2: !!opencv-matrix
   { rows: 1, cols: 8, dt: d, data: [ 0.1, 0., 0., 0., 0., 0., 0., 0. ] }
R: !!opencv-matrix
   { rows: 3, cols: 3, dt: d, data: [ 1., 0., 0., 0., 1., 0., 0., 0., 1. ] }
T: !!opencv-matrix
   { rows: 3, cols: 1, dt: d, data: [ -0.06, 0., 0. ] }
)";

template <typename Call>
std::string refusal(const Call& call) {
  try {
    call();
  } catch (const polarline::InputError& error) {
    return error.what();
  }
  return "";
}

TEST(SetCalibration, OursGoesInAsItStands) {
  const TempFolder folder;
  const auto set = init::setCalibration({folder.write("rig.json", kOurs)}, {});
  EXPECT_EQ(set.file_name, "calib.json");
  EXPECT_EQ(set.bytes, kOurs);
  EXPECT_EQ(set.calibration.type, 0);
  EXPECT_EQ(set.calibration.tx, -60.0);
  EXPECT_FALSE(init::tellsSize(set));
}

TEST(SetCalibration, OursOfFourCoefficientsMayBeAFisheye) {
  const TempFolder folder;
  std::string four = kOurs;
  four.insert(four.find(", \"K1\"") + 1, " \"K4\": 0.01,");
  const std::string path = folder.write("rig.json", four);
  EXPECT_THAT(refusal([&] { init::setCalibration({path}, {}); }), HasSubstr("--model"));
  ImportOptions options;
  options.model = "fisheye";
  const auto set = init::setCalibration({path}, options);
  EXPECT_EQ(set.calibration.type, 2);
  EXPECT_EQ(set.bytes, four);
}

TEST(SetCalibration, OursWithAScaleIsWrittenAnew) {
  const TempFolder folder;
  ImportOptions options;
  options.scale = 10;
  const auto set = init::setCalibration({folder.write("rig.json", kOurs)}, options);
  EXPECT_EQ(set.calibration.tx, -600.0);
  EXPECT_NE(set.bytes, kOurs);
}

TEST(SetCalibration, OtherToolsBecomeOurs) {
  const TempFolder folder;
  ImportOptions options;
  options.scale = 1000;
  const auto set = init::setCalibration({folder.write("stereo.yml", kOpenCv)}, options);
  EXPECT_EQ(set.format, "opencv");
  EXPECT_EQ(set.file_name, "calib.json");
  EXPECT_EQ(set.calibration.type, 1) << "K4 of one camera is not 0";
  EXPECT_DOUBLE_EQ(set.calibration.tx, -60.0);
  EXPECT_THAT(set.bytes, HasSubstr("IR_L"));
}

struct BinaryCase {
  const char* name;
  scene::Scene (*scene)();
  int type;
};

scene::Scene fisheye() { return small_scene::of(scene::fisheyeRig({644, 515, 60.0}), scene::bigDotBoard(7, 9)); }

class SetCalibrationBinary : public testing::TestWithParam<BinaryCase> {};

TEST_P(SetCalibrationBinary, TellsItsTypeAndSizeAndGoesInAsItStands) {
  const scene::Scene scene = GetParam().scene();
  const RenderedSet rendered(scene);
  const auto set = init::setCalibration({rendered.file("calib.bin")}, {});
  EXPECT_EQ(set.file_name, "calib.bin");
  EXPECT_EQ(set.bytes, rendered.text("calib.bin"));
  EXPECT_EQ(set.format, "binary");
  EXPECT_EQ(set.calibration.type, GetParam().type);
  EXPECT_TRUE(init::tellsSize(set));
  EXPECT_EQ(set.calibration.left.size.width, scene.rig.left.width);
  EXPECT_FALSE(std::filesystem::exists(rendered.file("polyparamirl_x.txt"))) << "nothing is written beside it";
}

INSTANTIATE_TEST_SUITE_P(Models, SetCalibrationBinary,
                         testing::Values(BinaryCase{"Brown", small_scene::dots, 1}, BinaryCase{"Fisheye", fisheye, 2},
                                         BinaryCase{"Polynomial", small_scene::polynomial, 3}),
                         [](const auto& test) { return test.param.name; });

TEST(SetCalibration, ABinaryFileTakesNoOptions) {
  const RenderedSet rendered(small_scene::dots());
  ImportOptions options;
  options.scale = 1000;
  EXPECT_THAT(refusal([&] { init::setCalibration({rendered.file("calib.bin")}, options); }),
              HasSubstr("taken as it stands"));
}

TEST(SetCalibration, ASpoiltBinaryFileIsRefused) {
  const TempFolder folder;
  EXPECT_THAT(refusal([&] { init::setCalibration({folder.write("a.bin", std::string(4383, '\0'))}, {}); }),
              HasSubstr("a.bin: is no calibration"));
  const RenderedSet rendered(small_scene::polynomial());
  std::string bytes = rendered.text("calib.bin");
  bytes[200] = static_cast<char>(bytes[200] ^ 1);
  EXPECT_THAT(refusal([&] { init::setCalibration({folder.write("b.bin", bytes)}, {}); }), HasSubstr("check sum"));
}

TEST(SetCalibration, PicturesMustBeOfItsSize) {
  const TempFolder folder;
  const auto set = init::setCalibration({folder.write("stereo.yml", kOpenCv)}, {});
  EXPECT_THAT(init::checkSize(set, {640, 480}), IsEmpty());
  EXPECT_THAT(refusal([&] {
                init::checkSize(set, {1280, 960});
              }),
              HasSubstr("1280x960, but the calibration of the left camera was made at 640x480"));
}

TEST(SetCalibration, WithoutASizeTheMiddleOfTheLensesTells) {
  const TempFolder folder;
  const auto set = init::setCalibration({folder.write("rig.json", kOurs)}, {});
  EXPECT_THAT(init::checkSize(set, {640, 480}), IsEmpty());
  // At 1280 the lens would have its middle a quarter of the side from the picture's.
  const auto warnings = init::checkSize(set, {1280, 960});
  ASSERT_THAT(warnings, SizeIs(1));
  EXPECT_EQ(warnings[0].code, "principal_point");
  EXPECT_THAT(warnings[0].text, HasSubstr("25 %"));
  EXPECT_THAT(refusal([&] {
                init::checkSize(set, {320, 240});
              }),
              HasSubstr("the right lens at (320.0, 240.0), outside the pictures of 320x240"));
}

}  // namespace
