#include "check/run/MissingKeys.h"

#include <gtest/gtest.h>

#include "input/PolarConfigKeys.h"

namespace polarline {
namespace {

const std::vector<double> kPoint = {1.0, 2.0, 3.0};

PolarConfig complete() {
  PolarConfig config;
  config.triangulate_dis_switch = 1;
  config.foursixmethod_swithch = 1;
  config.TriPoint1_GT = config.TriPoint2_GT = config.TriPoint3_GT = config.TriPoint4_GT = kPoint;
  config.PolPoint1_GT = config.PolPoint2_GT = config.PolPoint3_GT = config.PolPoint4_GT = kPoint;
  return config;
}

TEST(MissingKeys, AreThoseOfTheEvaluationsThatAreOn) {
  PolarConfig config = complete();
  EXPECT_EQ(missingKeys(config), "");
  config.PolPoint4_GT.clear();
  EXPECT_EQ(missingKeys(config), "has no PolPoint4_GT, which foursixmethod_swithch wants");
  config.TriPoint1_GT.clear();
  config.TriPoint3_GT.clear();
  EXPECT_EQ(missingKeys(config), "has no TriPoint1_GT, TriPoint3_GT, which triangulate_dis_switch wants");
  config.triangulate_dis_switch = 0;
  config.foursixmethod_swithch = 2;  // The cloud without distances.
  EXPECT_EQ(missingKeys(config), "");
}

TEST(MissingKeys, OfAFrameRunAreItsLists) {
  PolarConfig config;
  config.frame_work = 1;
  EXPECT_EQ(missingKeys(config), "") << "a run without a point reads nothing";
  config.Frame_ID = {1, 2};
  EXPECT_EQ(missingKeys(config), "has no Frame_3D, Frame_IRL, Frame_IRR, which frame_work wants");
  config.Frame_3D = {kPoint, kPoint};
  config.Frame_IRL = {{1.0, 2.0}, {3.0, 4.0}};
  config.Frame_IRR = {{1.0, 2.0}};
  EXPECT_EQ(missingKeys(config), "Frame_IRR has 1 entries, and frame_work reads 2: one for each of Frame_ID");
}

struct Lacking {
  const char* absent;  ///< Of the keys of a whole file.
  void (*change)(PolarConfig& config);
  bool is_rectified;
  const char* text;  ///< Empty: nothing is told.
};

class MissingKeysThatARunGoesOnWithout : public testing::TestWithParam<Lacking> {};

TEST_P(MissingKeysThatARunGoesOnWithout, AreWarnedOf) {
  PolarInput polar;
  polar.config = complete();
  polar.config.dy_bias_switch = polar.config.allpoints_calc_switch = 1;
  GetParam().change(polar.config);
  polar_keys::forEach([&](const auto& key) { polar.keys.insert(key.name); });
  polar.keys.erase(GetParam().absent);
  std::vector<Warning> warnings;
  warnOfMissingKeys("polar.txt", polar, GetParam().is_rectified, warnings);
  ASSERT_EQ(warnings.size(), *GetParam().text == '\0' ? 0U : 1U);
  if (warnings.empty()) return;
  EXPECT_EQ(warnings[0].code, "missing_key");
  EXPECT_EQ(warnings[0].text, GetParam().text);
}

constexpr auto kAsItIs = [](PolarConfig& /*config*/) {};
constexpr auto kRowsOff = [](PolarConfig& c) { c.dy_bias_switch = 0; };
constexpr auto kOfFrames = [](PolarConfig& c) { c.frame_work = 1; };
constexpr auto kOfGroups = [](PolarConfig& c) { c.oqc_switch = 1; };

INSTANTIATE_TEST_SUITE_P(
    All, MissingKeysThatARunGoesOnWithout,
    testing::Values(
        Lacking{"", kAsItIs, false, ""}, Lacking{"", kAsItIs, true, ""}, Lacking{"", kOfFrames, false, ""},
        Lacking{"f_scale", kAsItIs, false, ""}, Lacking{"spaceRms_switch", kAsItIs, false, ""},
        Lacking{"dy_bias_divid", kAsItIs, false,
                "polar.txt: has no dy_bias_divid, which dy_bias_switch reads: it counts as 0 or empty"},
        Lacking{"dy_bias_divid", kRowsOff, false, ""},
        Lacking{"TriPoint3_ID", kAsItIs, false,
                "polar.txt: has no TriPoint3_ID, which triangulate_dis_switch reads: it counts as 0 or empty"},
        Lacking{"TriPoint3_ID", kAsItIs, true, ""},
        Lacking{"PolPoint1_ID", kAsItIs, true,
                "polar.txt: has no PolPoint1_ID, which foursixmethod_swithch reads: it counts as 0 or empty"},
        Lacking{"pattern_step", kAsItIs, false,
                "polar.txt: has no pattern_step, which allpoints_calc_switch reads: it counts as 0 or empty"},
        Lacking{"Cal_ID_DIS", kOfGroups, false, ""},
        Lacking{"Cal_ID_DIS", kOfGroups, true,
                "polar.txt: has no Cal_ID_DIS, which oqc_switch reads: it counts as 0 or empty"},
        Lacking{"Frame_ID_DIS", kOfFrames, false,
                "polar.txt: has no Frame_ID_DIS, which frame_work reads: it counts as 0 or empty"},
        Lacking{"dy_bias_switch", kRowsOff, false,
                "polar.txt: has no dy_bias_switch, and what it would switch on is not measured"},
        Lacking{"discalswitch", kAsItIs, true, ""}, Lacking{"discalswitch", kOfFrames, false, ""}));

TEST(MissingKeys, ThatAreAllSwitchesAreNoEvaluationAtAll) {
  PolarInput polar;
  polar.keys = {"type"};
  std::vector<Warning> warnings;
  warnOfMissingKeys("polar.txt", polar, false, warnings);
  EXPECT_TRUE(warnings.empty()) << "another warning tells it";
}

TEST(MissingKeys, OfOneEvaluationAreToldTogether) {
  PolarInput polar;
  polar.config.triangulate_dis_switch = 1;
  polar.keys = {"triangulate_residual_switch", "triangulate_dis_switch", "discalswitch", "TriPoint1_ID"};
  std::vector<Warning> warnings;
  warnOfMissingKeys("polar.txt", polar, false, warnings);
  ASSERT_EQ(warnings.size(), 2U);
  EXPECT_EQ(
      warnings[0].text,
      "polar.txt: has no TriPoint2_ID, TriPoint3_ID, TriPoint4_ID, which triangulate_dis_switch reads: they count "
      "as 0 or empty");
  EXPECT_EQ(warnings[1].text,
            "polar.txt: has no dy_bias_switch, foursixmethod_swithch, and what it would switch on is not measured");
}

}  // namespace
}  // namespace polarline
