#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using layouts::Texts;
using polarline::Calibration;
using polarline::ImportOptions;
using testing::HasSubstr;

/// A pair without any turn whose projections differ in the principal point: 0.05 apart by fx' = 400.
Texts plain(const std::string& p_left, const std::string& p_right) {
  const auto one = [](const std::string& projection) {
    return "camera_matrix: {rows: 3, cols: 3, data: [400, 0, 320, 0, 400, 240, 0, 0, 1]}\n"
           "distortion_coefficients: {rows: 1, cols: 5, data: [0.1, 0.01, 0.001, 0.002, 0.003]}\n"
           "rectification_matrix: {rows: 3, cols: 3, data: [1, 0, 0, 0, 1, 0, 0, 0, 1]}\n"
           "projection_matrix: {rows: 3, cols: 4, data: " +
           projection + "}\nimage_width: 640\nimage_height: 480\n";
  };
  return {one(p_left), one(p_right)};
}

TEST(RosLens, IsPlumbBobWhereNoneIsNamed) {
  const Calibration calibration =
      imported(plain("[400, 0, 320, 0, 0, 400, 240, 0, 0, 0, 1, 0]", "[400, 0, 320, -20, 0, 400, 240, 0, 0, 0, 1, 0]"))
          .calibration;
  EXPECT_EQ(calibration.type, 0);
  EXPECT_THAT(calibration.left.k, testing::ElementsAre(0.1, 0.01, 0.003, 0, 0, 0));
  EXPECT_EQ(calibration.left.p1, 0.001);
  EXPECT_EQ(calibration.left.p2, 0.002);
}

TEST(RosTranslation, IsThatOfBothProjections) {
  // Left: K'^-1 t = (8 - 320 * 0.02) / 400, (4 - 240 * 0.02) / 800, 0.02 = 0.004, -0.001, 0.02. Right: -0.05, 0.01, 0.
  const Calibration calibration = imported(plain("[400, 0, 320, 8, 0, 800, 240, 4, 0, 0, 1, 0.02]",
                                                 "[500, 0, 300, -25, 0, 400, 200, 4, 0, 0, 1, 0]"))
                                      .calibration;
  EXPECT_NEAR(calibration.tx, -0.054, 1e-15);
  EXPECT_NEAR(calibration.ty, 0.011, 1e-15);
  EXPECT_NEAR(calibration.tz, -0.02, 1e-15);
}

TEST(RosTranslation, IsTurnedBackIntoTheRightCamera) {
  // The right camera is turned by 90 degrees about z against the rectified one, X_rect = R_r X_r with R_r = Rz(90).
  Texts texts = plain("[400, 0, 320, 0, 0, 400, 240, 0, 0, 0, 1, 0]", "[400, 0, 320, -20, 0, 400, 240, 0, 0, 0, 1, 0]");
  texts[1] = with(texts[1], "[1, 0, 0, 0, 1, 0, 0, 0, 1]", "[0, -1, 0, 1, 0, 0, 0, 0, 1]");
  const Calibration calibration = imported(texts).calibration;
  EXPECT_NEAR(calibration.tx, 0.0, 1e-16);  // R_r' (-0.05, 0, 0) = (0, 0.05, 0)
  EXPECT_NEAR(calibration.ty, 0.05, 1e-16);
  EXPECT_NEAR(calibration.rz, -CV_PI / 2, 1e-15);
}

TEST(RosSize, IsNotKnownWithASideOfNought) {
  Texts texts = layouts::ros(Rig(), "plumb_bob");
  texts[0] = with(texts[0], "image_width: 640", "image_width: 0");
  const polarline::ImportedCalibration found = imported(texts);
  EXPECT_EQ(found.calibration.left.size.height, 0);
  EXPECT_EQ(found.calibration.right.size.height, 480);
  EXPECT_THAT(codesOf(found), testing::ElementsAre("baseline_in_metres", "no_image_size"));
}

/// Projections as K R: nothing of the rectified camera is left in them but t.
const std::string kOverwrittenLeft = "[399, 12, 320, 0, -9, 401, 240, 0, -0.01, 0.02, 0.999, 0]";
const std::string kOverwrittenRight = "[399, 12, 320, -20, -9, 401, 240, 0, -0.01, 0.02, 0.999, 0]";

TEST(RosOverwritten, IsRefusedAndAsksForTheBaseline) {
  const std::string text = refusal(plain(kOverwrittenLeft, kOverwrittenRight));
  EXPECT_THAT(text, HasSubstr("a: projection_matrix: is no [fx' 0 cx' ..; 0 fy' cy' ..; 0 0 1 ..]"));
  EXPECT_THAT(text, HasSubstr("--baseline"));
}

TEST(RosOverwritten, TakesTheBaselineInTheDirectionThatIsLeft) {
  ImportOptions options;
  options.baseline = 60.0;
  const polarline::ImportedCalibration found = imported(plain(kOverwrittenLeft, kOverwrittenRight), options);
  EXPECT_DOUBLE_EQ(found.calibration.tx, -60.0);
  EXPECT_THAT(codesOf(found), testing::Not(testing::Contains("baseline_overridden"))) << "the file's was lost";
}

TEST(RosOverwritten, IsRefusedWithoutADirection) {
  ImportOptions options;
  options.baseline = 60.0;
  EXPECT_THAT(refusal(plain(kOverwrittenLeft, with(kOverwrittenRight, "240, 0", "240, 3")), options),
              HasSubstr("b: projection_matrix: was overwritten and does not tell the direction of the baseline"));
}

TEST(RosAlone, HasNoBaseline) {
  const std::string p = "[400, 0, 320, 0, 0, 400, 240, 0, 0, 0, 1, 0]";
  EXPECT_THAT(refusal(plain(p, p)),
              HasSubstr("b: projection_matrix: has no baseline, as of a camera that was calibrated alone"));
  ImportOptions options;
  options.baseline = 60.0;
  EXPECT_THAT(refusal(plain(p, p), options), HasSubstr("has no baseline"));
}

TEST(RosFiles, MayBeDocumentsOfOne) {
  const Texts texts = layouts::ros(rationalRig(), "rational_polynomial");
  EXPECT_EQ(imported({texts[0] + "---\n" + texts[1]}).calibration.tx, imported(texts).calibration.tx);
}

TEST(RosFiles, AreTwo) {
  const Texts texts = layouts::ros(Rig(), "plumb_bob");
  EXPECT_EQ(refusal({texts[0]}), "a: found 1 camera(s); the left and the right one were wanted");
  EXPECT_EQ(refusal({texts[0], texts[1], texts[1]}), "a: found 3 camera(s); the left and the right one were wanted");
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class RosRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(RosRefused, WithTheKeyAndWhatWasFound) {
  Texts texts = layouts::ros(Rig(), "plumb_bob");
  texts[1] = with(texts[1], GetParam().from, GetParam().to);
  EXPECT_THAT(refusal(texts), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, RosRefused,
    testing::Values(Spoiled{"Binning", "camera_name: one", "binning_x: 2",
                            "b: binning_x: found a binning of 2; 1 was wanted"},
                    Spoiled{"Region", "camera_name: one", "roi: {x_offset: 16, y_offset: 0}",
                            "b: roi/x_offset: is a part of the picture"},
                    Spoiled{"Skew", "[508.5, 0,", "[508.5, 0.25,", "b: camera_matrix: has a skew of 0.25 pixels"},
                    Spoiled{"LastElement", "237.25, 0, 0, 1]", "237.25, 0, 0, 2]",
                            "b: camera_matrix: found [.. .. ..; 0 .. ..; 0 0 2]"},
                    Spoiled{"Model", "plumb_bob", "double_sphere",
                            "b: distortion_model: the camera model 'double_sphere' has no exact"},
                    Spoiled{"Count", "cols: 4\n  data: [-0.27", "cols: 5\n  data: [-0.27",
                            "b: distortion_coefficients: found 4 numbers; rows 1 by cols 5 were said"},
                    Spoiled{"NoP", "projection_matrix", "projection", "b: has no projection_matrix"},
                    Spoiled{"Shape", "rows: 3\n  cols: 4", "rows: 4\n  cols: 3",
                            "b: projection_matrix: found a matrix of 4 x 3; 3 x 4 was wanted"}),
    [](const auto& each) { return each.param.name; });

TEST(RosPicture, MayHaveABinningOfOneOrNought) {
  for (const char* binning : {"binning_x: 0", "binning_x: 1", "roi: {x_offset: 0, y_offset: 0}", "roi: none"}) {
    Texts texts = layouts::ros(Rig(), "plumb_bob");
    texts[0] = with(texts[0], "camera_name: one", binning);
    EXPECT_EQ(refusal(texts), "") << binning;
  }
}

}  // namespace
