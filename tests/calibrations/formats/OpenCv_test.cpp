#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/core/persistence.hpp>

#include "Imported.h"
#include "Layouts.h"

namespace {

using layouts::Texts;
using polarline::Calibration;
using polarline::ImportOptions;
using testing::HasSubstr;

const Rig kRig = rationalRig();

void expectRig(const Calibration& calibration) {
  EXPECT_EQ(calibration.left.fx, 512.25);
  EXPECT_EQ(calibration.right.cy, 237.25);
  EXPECT_THAT(calibration.left.k, testing::ElementsAre(0.3, -0.02, 0.016, 0.57, -0.06, 0.03));
  EXPECT_THAT(calibration.right.k, testing::ElementsAre(0.31, -0.03, 0.015, 0.58, -0.05, 0.02));
  EXPECT_EQ(calibration.left.p1, -0.0003);
  EXPECT_EQ(calibration.right.p2, -0.0004);
  EXPECT_EQ(calibration.tx, -0.062);
}

TEST(OpenCvFiles, MayBeOne) {
  const std::string pose = with(layouts::openCvExtrinsics(kRig), "%YAML:1.0\n---\n", "");
  expectRig(imported({layouts::openCvIntrinsics(kRig) + pose}).calibration);
}

TEST(OpenCvFiles, MayComeInEitherOrder) {
  expectRig(imported({layouts::openCvExtrinsics(kRig), layouts::openCvIntrinsics(kRig)}).calibration);
}

TEST(OpenCvFiles, MayNameThingsOtherwise) {
  std::string text = layouts::openCvIntrinsics(kRig) + with(layouts::openCvExtrinsics(kRig), "%YAML:1.0\n---\n", "");
  for (const auto& [from, to] : std::vector<std::pair<const char*, const char*>>{{"M1", "camera_matrix_left"},
                                                                                 {"M2", "camera_matrix_right"},
                                                                                 {"D1", "distortion_coeffs_left"},
                                                                                 {"D2", "dist_coeffs_right"},
                                                                                 {"\nR:", "\nrotation_matrix:"},
                                                                                 {"\nT:", "\ntranslation_vector:"}}) {
    text = with(text, from, to);
  }
  expectRig(imported({text}).calibration);
  expectRig(imported({layouts::openCvIntrinsics(kRig, "K"), layouts::openCvExtrinsics(kRig)}).calibration);
}

TEST(OpenCvFiles, MayBeOneACamera) {
  const auto camera = [](const cv::Matx33d& K, const std::vector<double>& D) {
    return "%YAML:1.0\n" + layouts::openCvMatrix("K", 3, 3, layouts::values(K)) +
           layouts::openCvMatrix("D", static_cast<int>(D.size()), 1, D) + layouts::openCvMatrix("width", 1, 1, {640}) +
           layouts::openCvMatrix("height", 1, 1, {480});
  };
  const Texts texts = {camera(kRig.K_left, kRig.D_left), camera(kRig.K_right, kRig.D_right),
                       layouts::openCvExtrinsics(kRig)};
  const Calibration calibration = imported(texts).calibration;
  expectRig(calibration);
  EXPECT_EQ(calibration.left.size.width, 640);
  EXPECT_EQ(calibration.right.size.height, 480);
}

TEST(OpenCvFiles, OfWhichHalfIsMissingAreToldWhich) {
  const auto camera = [](const cv::Matx33d& K) {
    return "%YAML:1.0\n" + layouts::openCvMatrix("K", 3, 3, layouts::values(K)) +
           layouts::openCvMatrix("D", 5, 1, {0, 0, 0, 0, 0});
  };
  EXPECT_EQ(refusal({layouts::openCvIntrinsics(kRig)}),
            "a: has the cameras, not their pose; name the file with R and T as well");
  EXPECT_EQ(refusal({camera(kRig.K_left), camera(kRig.K_right)}),
            "a: has the cameras, not their pose; name the file with R and T as well");
  EXPECT_EQ(refusal({layouts::openCvExtrinsics(kRig)}),
            "a: has the pose, not the cameras; name the file with M1, D1, M2 and D2 as well");
  EXPECT_EQ(refusal({camera(kRig.K_left), layouts::openCvExtrinsics(kRig)}),
            "a: has one camera; the files of both cameras and that of R and T were wanted");
}

/// What OpenCV itself writes, in each of its syntaxes and with all digits of a double.
class OpenCvStorage : public testing::TestWithParam<const char*> {};

TEST_P(OpenCvStorage, IsRead) {
  cv::FileStorage storage(std::string("memory") + GetParam(), cv::FileStorage::WRITE | cv::FileStorage::MEMORY);
  storage << "M1" << cv::Mat(kRig.K_left) << "D1" << cv::Mat(kRig.D_left) << "M2" << cv::Mat(kRig.K_right) << "D2"
          << cv::Mat(kRig.D_right) << "R" << cv::Mat(kRig.R()) << "T" << cv::Mat(kRig.T) << "image_size"
          << cv::Size(640, 480);
  const Calibration calibration = imported({storage.releaseAndGetString()}).calibration;
  expectRig(calibration);
  EXPECT_EQ(calibration.left.size.height, 480);
}

INSTANTIATE_TEST_SUITE_P(Syntaxes, OpenCvStorage, testing::Values(".yml", ".json", ".xml"),
                         [](const auto& each) { return std::string(each.param + 1); });

TEST(OpenCvNumbers, KeepTheirDigitsInASingleMatrix) {
  std::string text = layouts::openCvIntrinsics(kRig);
  text = with(with(text, "dt: d", "dt: f"), "512.25", "512.2512345678901");
  EXPECT_EQ(imported({text, layouts::openCvExtrinsics(kRig)}).calibration.left.fx, 512.2512345678901);
}

TEST(OpenCvFour, AreRefusedWithoutAModel) {
  const Rig rig;
  EXPECT_THAT(refusal(layouts::openCv(rig)),
              HasSubstr("a: D1: has four coefficients, which may be of a Brown or of a fisheye"));
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class OpenCvRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(OpenCvRefused, WithTheKeyAndWhatWasFound) {
  Rig rig = kRig;
  rig.D_left.resize(14, 0.0);
  const std::string text =
      layouts::openCvIntrinsics(rig) + with(layouts::openCvExtrinsics(rig), "%YAML:1.0\n---\n", "");
  EXPECT_THAT(refusal({with(text, GetParam().from, GetParam().to)}), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, OpenCvRefused,
    testing::Values(
        Spoiled{"Prism", "0.03, 0, 0, 0, 0,", "0.03, 0.25, 0, -0.5, 0,",
                "a: D1: has thin-prism terms s1..s4 = [0.25, 0, -0.5, 0]"},
        Spoiled{"Tilt", "0.03, 0, 0, 0, 0, 0, 0]", "0.03, 0, 0, 0, 0, 0, 1e-9]",
                "a: D1: has tilt terms tx, ty = [0, 1e-09]"},
        Spoiled{"Skew", "512.25, 0,", "512.25, -1,",
                "a: M1: has a skew of -1 pixels; our calibration has no member for it"},
        Spoiled{"Seven", "cols: 8\n   dt: d\n   data: [0.31, ", "cols: 7\n   dt: d\n   data: [",
                "a: D2: found 7 coefficients; 0, 4, 5, 8, 12 or 14 were wanted"},
        Spoiled{"Mirror", "R: !!opencv-matrix", "R: [-1, 0, 0, 0, 1, 0, 0, 0, 1]\nE:",
                "a: R: is no rotation: |M'M - I| reaches 0 and the determinant is -1"},
        Spoiled{"Stretched", "R: !!opencv-matrix",
                "R: [1.001, 0, 0, 0, 1, 0, 0, 0, 1]\nE:", "a: R: is no rotation: |M'M - I| reaches 0.002"},
        Spoiled{"RotationVector", "R: !!opencv-matrix", "R: [0, 0, 0.1]\nE:", "a: R: found 3 numbers; 9 were wanted"},
        Spoiled{"NoRotation", "R: !!opencv-matrix", "E:", "a: has no R or rotation_matrix"},
        Spoiled{"NoTranslation", "T: !!opencv-matrix", "E:", "a: has no T or translation_vector"},
        Spoiled{"NoRight", "M2:", "N2:", "a: has no M2 or K2 or camera_matrix_right"},
        Spoiled{"NoLens", "D2:", "N2:", "a: has no D2 or dist_coeffs_right"},
        Spoiled{"Text", "M1: !!opencv-matrix", "M1: text\nE:", "a: M1: found 'text'; a list of numbers was wanted"},
        Spoiled{"DataOfMaps", "data: [508.5,", "data: [{a: 1},", "a: M2/data[0]: found a map; a number was wanted"}),
    [](const auto& each) { return each.param.name; });

TEST(OpenCvRefusedFiles, HoldAThingTwice) {
  const std::string intrinsics = layouts::openCvIntrinsics(kRig);
  const std::string extrinsics = layouts::openCvExtrinsics(kRig);
  EXPECT_EQ(refusal({intrinsics, extrinsics, extrinsics}), "c: has R again; one of each was wanted");
  EXPECT_EQ(refusal({intrinsics, intrinsics, extrinsics}), "b: has M1 again; one of each was wanted");
}

TEST(OpenCvRefusedOptions, AreThePair) {
  ImportOptions options;
  options.pair = {0, 1};
  EXPECT_THAT(refusal(layouts::openCv(kRig), options), HasSubstr("--pair: is not for OpenCV"));
}

TEST(OpenCvRefusedOptions, AreAFisheyeOfEight) {
  ImportOptions options;
  options.model = "fisheye";
  EXPECT_THAT(refusal(layouts::openCv(kRig), options),
              HasSubstr("a: D1: found 8 coefficients; the 4 of a fisheye were wanted"));
}

}  // namespace
