#include "input/PolarConfigKeys.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/Places.h"

namespace {

TEST(PolarConfigKeys, EveryFieldThatIsAKeyIsListedOnceUnderItsName) {
  PolarConfig config;
  // A new field does not compile here until it has its name in the list below. result_folder is no key.
  const auto& [type, x_y, evaluation, savepolarline, evalu_model, crop, cropped_cols, cropped_rows, f_scale,
               allpoints_calc_switch, foursixmethod_swithch, triangulate_residual_switch, triangulate_dis_switch,
               eccentricity, discalswitch, discalsave, dy_bias_switch, tir_bias_savecsv_swithch,
               allpointssavecsv_swithch, dy_bias_savecsv_swithch, tri_bias_savepng_swithch, dy_bias_savepng_swithch,
               pattern_rows, pattern_cols, pattern_step, dy_bias_divid, tri_bias_divid, TriPoint1_ID, TriPoint2_ID,
               TriPoint3_ID, TriPoint4_ID, PolPoint1_ID, PolPoint2_ID, PolPoint3_ID, PolPoint4_ID, result_folder,
               TriPoint1_GT, TriPoint2_GT, TriPoint3_GT, TriPoint4_GT, PolPoint1_GT, PolPoint2_GT, PolPoint3_GT,
               PolPoint4_GT, Cal_ID_DIS, oqc_switch, frame_work, Frame_3D, Frame_ID, Frame_IRL, Frame_IRR, Frame_ID_DIS,
               spaceRms_switch] = config;
#define FIELD(name) \
  { #name, &name }
  const std::map<std::string, const void*> fields = {FIELD(type),
                                                     FIELD(x_y),
                                                     FIELD(evaluation),
                                                     FIELD(savepolarline),
                                                     FIELD(evalu_model),
                                                     FIELD(crop),
                                                     FIELD(cropped_cols),
                                                     FIELD(cropped_rows),
                                                     FIELD(f_scale),
                                                     FIELD(TriPoint1_ID),
                                                     FIELD(TriPoint2_ID),
                                                     FIELD(TriPoint3_ID),
                                                     FIELD(TriPoint4_ID),
                                                     FIELD(PolPoint1_ID),
                                                     FIELD(PolPoint2_ID),
                                                     FIELD(PolPoint3_ID),
                                                     FIELD(PolPoint4_ID),
                                                     FIELD(TriPoint1_GT),
                                                     FIELD(TriPoint2_GT),
                                                     FIELD(TriPoint3_GT),
                                                     FIELD(TriPoint4_GT),
                                                     FIELD(PolPoint1_GT),
                                                     FIELD(PolPoint2_GT),
                                                     FIELD(PolPoint3_GT),
                                                     FIELD(PolPoint4_GT),
                                                     FIELD(eccentricity),
                                                     FIELD(discalswitch),
                                                     FIELD(discalsave),
                                                     FIELD(pattern_rows),
                                                     FIELD(pattern_cols),
                                                     FIELD(pattern_step),
                                                     FIELD(dy_bias_divid),
                                                     FIELD(tri_bias_divid),
                                                     FIELD(Cal_ID_DIS),
                                                     FIELD(oqc_switch),
                                                     FIELD(frame_work),
                                                     FIELD(Frame_3D),
                                                     FIELD(Frame_ID),
                                                     FIELD(Frame_IRL),
                                                     FIELD(Frame_IRR),
                                                     FIELD(Frame_ID_DIS),
                                                     FIELD(spaceRms_switch),
                                                     FIELD(dy_bias_switch),
                                                     FIELD(allpoints_calc_switch),
                                                     FIELD(foursixmethod_swithch),
                                                     FIELD(triangulate_residual_switch),
                                                     FIELD(triangulate_dis_switch),
                                                     FIELD(tir_bias_savecsv_swithch),
                                                     FIELD(allpointssavecsv_swithch),
                                                     FIELD(dy_bias_savecsv_swithch),
                                                     FIELD(tri_bias_savepng_swithch),
                                                     FIELD(dy_bias_savepng_swithch)};
#undef FIELD
  std::map<std::string, const void*> listed;
  polar_keys::forEach(
      [&](const auto& key) { EXPECT_TRUE(listed.emplace(key.name, &key.valueIn(config)).second) << key.name; });
  EXPECT_EQ(listed, fields);
  EXPECT_FALSE(listed.contains("result_folder"));
  EXPECT_EQ(result_folder, "");
}

TEST(PolarConfigKeys, EachSaysWhatItMeansInOneLineAndWhatMayBeWritten) {
  std::set<std::string> meanings;
  polar_keys::forEach([&](const auto& key) {
    const std::string meaning = key.meaning;
    EXPECT_TRUE(meanings.insert(meaning).second) << key.name;
    EXPECT_EQ(meaning.find('\n'), std::string::npos) << key.name;
    EXPECT_FALSE(meaning.empty() || meaning.ends_with('.')) << key.name;
    EXPECT_STRNE(key.values, "") << key.name;
  });
}

/// A point is what stops the reading, and nothing else does.
TEST(PolarConfigKeys, TheTruePositionsAreThoseOfThreeNumbers) {
  std::vector<std::string> points;
  polar_keys::forEach([&](const auto& key) {
    if (key.rule == polar_keys::Rule::kThreeNumbers) points.emplace_back(key.name);
  });
  EXPECT_EQ(points, (std::vector<std::string>{"TriPoint1_GT", "TriPoint2_GT", "TriPoint3_GT", "TriPoint4_GT",
                                              "PolPoint1_GT", "PolPoint2_GT", "PolPoint3_GT", "PolPoint4_GT"}));
}

TEST(PolarConfigKeys, TheWalkEndsAtTheFirstNo) {
  std::vector<std::string> seen;
  EXPECT_FALSE(polar_keys::forEachWhile([&](const auto& key) {
    seen.emplace_back(key.name);
    return seen.back() != "f_scale";
  }));
  EXPECT_EQ(seen, (std::vector<std::string>{"type", "x_y", "f_scale"}));
  EXPECT_TRUE(polar_keys::forEachWhile([](const auto&) { return true; }));
}

/// The page writes the four points of an evaluation as a range, `TriPoint1_ID` .. `TriPoint4_ID`.
TEST(PolarConfigKeys, ThePageOnThePolarConfigurationHasThemAll) {
  std::ifstream file(places::inProject("docs/formats/polar_configuration.md"));
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  ASSERT_FALSE(page.empty());
  polar_keys::forEach([&](const auto& key) {
    std::string name = key.name;
    const std::size_t number = name.find_first_of("23");
    if (name.find("Point") != std::string::npos && number != std::string::npos) name[number] = '1';
    EXPECT_NE(page.find('`' + name + '`'), std::string::npos) << key.name;
  });
}

}  // namespace
