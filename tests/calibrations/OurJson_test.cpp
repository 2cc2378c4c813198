#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "input/CalibrationReader.h"
#include "polarline/calibration.h"
#include "support/CommaLocale.h"
#include "support/DocumentCheck.h"
#include "support/TempFolder.h"

namespace {

using polarline::Calibration;

/// Numbers of all sizes, with all their digits.
class Odd {
 public:
  double operator()() { return (digits_(random_) - 0.5) * std::pow(10.0, exponents_(random_)); }

 private:
  std::mt19937 random_{7};
  std::uniform_real_distribution<double> digits_;
  std::uniform_int_distribution<int> exponents_{-12, 8};
};

Calibration oddCalibration() {
  Odd odd;
  Calibration calibration;
  for (polarline::Camera* camera : {&calibration.left, &calibration.right}) {
    for (double* value : {&camera->fx, &camera->fy, &camera->cx, &camera->cy, &camera->p1, &camera->p2}) *value = odd();
    for (double& value : camera->k) value = odd();
  }
  for (double* value :
       {&calibration.rx, &calibration.ry, &calibration.rz, &calibration.tx, &calibration.ty, &calibration.tz}) {
    *value = odd();
  }
  return calibration;
}

std::array<double, 12> numbersOf(const polarline::Camera& c) {
  return {c.fx, c.fy, c.cx, c.cy, c.k[0], c.k[1], c.k[2], c.k[3], c.k[4], c.k[5], c.p1, c.p2};
}

StereoCalibParams readBack(const std::string& text) {
  const TempFolder folder;
  StereoCalibParams read;
  std::string error;
  EXPECT_EQ(ReadCalibResult(folder.write("calib.json", text), read, error), 0);
  return read;
}

TEST(OurJson, IsReadByTheLibraryToTheSameDoubles) {
  const Calibration calibration = oddCalibration();
  const StereoCalibParams read = readBack(polarline::calibrationJson(calibration));
  EXPECT_EQ(read.left.intrinsics, numbersOf(calibration.left));
  EXPECT_EQ(read.right.intrinsics, numbersOf(calibration.right));
  EXPECT_EQ(read.extrinsics, (std::array<double, 6>{calibration.rx, calibration.ry, calibration.rz, calibration.tx,
                                                    calibration.ty, calibration.tz}));
}

TEST(OurJson, IsTheSameInEveryLocale) {
  const std::string text = polarline::calibrationJson(oddCalibration());
  const CommaLocale locale;
  EXPECT_EQ(polarline::calibrationJson(oddCalibration()), text);
}

TEST(OurJsonOfAnImport, SaysWhatTheCalibrationDoesNot) {
  polarline::ImportedCalibration imported;
  imported.format = "kalibr";
  imported.calibration.type = 2;
  imported.calibration.left.size = {640, 480};
  imported.calibration.left.fx = 500.25;
  imported.calibration.tx = -3;
  imported.calibration.tz = 4;
  imported.warnings = {{"no_image_size", "right: \xff", "Say it.", -1}};
  const auto json = DocumentCheck::of("import").parsed(polarline::importedCalibrationJson(imported));
  EXPECT_EQ(json["schema"], "polarline-import/1");
  EXPECT_EQ(json["format"], "kalibr");
  EXPECT_EQ(json["type"], 2);
  EXPECT_EQ(json["model"], "fisheye");
  EXPECT_EQ(json["left"]["width"], 640);
  EXPECT_EQ(json["left"]["Fx"], 500.25);
  EXPECT_TRUE(json["right"]["height"].is_null());
  EXPECT_EQ(json["extrinsics"]["TX"], -3);
  EXPECT_EQ(json["baseline"], 5);
  EXPECT_EQ(json["warnings"][0]["code"], "no_image_size");
  EXPECT_EQ(json["warnings"][0]["text"], "right: \xEF\xBF\xBD");
}

}  // namespace
