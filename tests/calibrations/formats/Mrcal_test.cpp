#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using layouts::Texts;
using polarline::Calibration;
using testing::HasSubstr;

Texts four() { return layouts::mrcal(Rig(), "LENSMODEL_OPENCV4"); }

Texts replaced(const std::string& from, const std::string& to) {
  Texts texts = four();
  for (std::string& text : texts) text = with(text, from, to);
  return texts;
}

TEST(MrcalKeys, MayBeTheOldOnes) {
  const Calibration wanted = imported(four()).calibration;
  for (const auto& [key, model] :
       {std::pair("lens_model", "LENSMODEL_OPENCV4"), std::pair("distortion_model", "DISTORTION_OPENCV4")}) {
    Texts texts = replaced("'lensmodel'", std::string("'") + key + "'");
    for (std::string& text : texts) text = with(text, "LENSMODEL_OPENCV4", model);
    EXPECT_EQ(imported(texts).calibration.tx, wanted.tx) << key;
  }
}

TEST(MrcalKeys, NameThePinholeOtherwise) {
  Rig rig;
  rig.D_left.clear();
  rig.D_right.clear();
  EXPECT_EQ(imported(layouts::mrcal(rig, "DISTORTION_NONE")).calibration.left.k[0], 0.0);
}

TEST(MrcalPose, MayBeGivenTwiceAlike) {
  const Calibration wanted = imported(four()).calibration;
  EXPECT_EQ(imported(replaced("'extrinsics'", "'rt_cam_ref'")).calibration.ty, wanted.ty);
  Texts texts = four();
  for (std::string& text : texts) {
    const std::size_t begin = text.find("'extrinsics'");
    const std::string line = text.substr(begin, text.find('\n', begin) - begin);
    text = with(text, line, line + "\n    " + with(line, "extrinsics", "rt_cam_ref"));
  }
  EXPECT_EQ(imported(texts).calibration.ty, wanted.ty);
  texts[1] = with(texts[1], "'rt_cam_ref': [", "'rt_cam_ref': [ 1e-3, 0, 0, 0, 0, 0], 'old': [");
  EXPECT_THAT(refusal(texts), HasSubstr("b: extrinsics: differs from rt_cam_ref"));
}

TEST(MrcalPair, MayBeChosen) {
  Texts texts = four();
  texts.insert(texts.begin(), texts.back());
  polarline::ImportOptions options;
  options.pair = {1, 2};
  EXPECT_EQ(imported(texts, options).calibration.tx, imported(four()).calibration.tx);
  options.pair = {1, 3};
  EXPECT_EQ(refusal(texts, options), "a: found 3 camera(s); one of each camera up to 3 were wanted");
}

struct Spoiled {
  const char* name;
  const char* from;
  const char* to;
  const char* text;
};

class MrcalRefused : public testing::TestWithParam<Spoiled> {};

TEST_P(MrcalRefused, WithTheKeyAndWhatWasFound) {
  EXPECT_THAT(refusal(replaced(GetParam().from, GetParam().to)), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, MrcalRefused,
    testing::Values(
        Spoiled{
            "Splined", "LENSMODEL_OPENCV4", "LENSMODEL_SPLINED_STEREOGRAPHIC_order=3_Nx=30",
            "a: lensmodel: the camera model 'LENSMODEL_SPLINED_STEREOGRAPHIC_order=3_Nx=30' has no exact counterpart"},
        Spoiled{"Cahvore", "LENSMODEL_OPENCV4", "LENSMODEL_CAHVOR",
                "a: lensmodel: the camera model 'LENSMODEL_CAHVOR'"},
        Spoiled{"Count", "LENSMODEL_OPENCV4", "LENSMODEL_OPENCV5", "a: intrinsics: found 8 numbers; 9 were wanted"},
        Spoiled{"NoModel", "'lensmodel'", "'lens'", "a: has no lensmodel or lens_model or distortion_model"},
        Spoiled{"NoPose", "'extrinsics'", "'pose'", "a: has no rt_cam_ref or extrinsics"},
        Spoiled{"NoSize", "'imagersize'", "'size'", "a: has no imagersize"}),
    [](const auto& each) { return each.param.name; });

TEST(MrcalPrism, IsRefusedUnlessNought) {
  Rig rig = rationalRig();
  rig.D_left.resize(12, 0.0);
  rig.D_right.resize(12, 0.0);
  rig.D_right[9] = 1e-5;
  EXPECT_THAT(refusal(layouts::mrcal(rig, "LENSMODEL_OPENCV12")),
              HasSubstr("b: intrinsics: has thin-prism terms s1..s4 = [0, 1e-05, 0, 0]"));
}

}  // namespace
