#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using layouts::Texts;
using testing::HasSubstr;

TEST(EurocPose, IsThatOfTheSensorInTheBody) {
  // Two sensors along the body's x, 0.02 and 0.1: the right one sees the left one's origin at -0.08.
  Texts texts = layouts::euroc(Rig());
  for (std::string& text : texts) {
    const std::size_t begin = text.find("  data: ");
    text.replace(begin, text.find('\n', begin) - begin,
                 std::string("  data: [1, 0, 0, ") + (&text == texts.data() ? "0.02" : "0.1") +
                     ", 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]");
  }
  EXPECT_NEAR(imported(texts).calibration.tx, -0.08, 1e-16);
}

TEST(EurocLens, MayBeAFisheye) {
  Texts texts = layouts::euroc(fisheyeRig());
  for (std::string& text : texts) text = with(text, "radial-tangential", "equidistant");
  EXPECT_EQ(imported(texts).calibration.type, 2);
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class EurocRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(EurocRefused, WithTheKeyAndWhatWasFound) {
  Texts texts = layouts::euroc(Rig());
  texts[1] = with(texts[1], GetParam().from, GetParam().to);
  EXPECT_THAT(refusal(texts), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(All, EurocRefused,
                         testing::Values(Spoiled{"Camera", "camera_model: pinhole", "camera_model: omni",
                                                 "b: the camera model 'omni' has no exact"},
                                         Spoiled{"Lens", "radial-tangential", "fov",
                                                 "b: the camera model 'pinhole-fov' has no exact"},
                                         Spoiled{"Count", "distortion_coefficients: [", "distortion_coefficients: [0, ",
                                                 "b: distortion_coefficients: found 5 numbers; 4 were wanted"},
                                         Spoiled{"NoPose", "T_BS", "T_SB", "b: is no calibration that is known"},
                                         Spoiled{"Shape", "cols: 4\n  rows: 4", "cols: 8\n  rows: 2",
                                                 "b: T_BS: found a matrix of 2 x 8; 4 x 4 was wanted"}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
