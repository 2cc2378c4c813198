#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "support/CopiedSet.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/Presets.h"

/// Whole checks, dots as they are detected, with calibrations that are not of the pictures though the middle of the
/// lens stays near the middle of the picture.
namespace polarline {
namespace {

using Json = nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct Other {
  const char* name;
  void (*change)(Json& left, Json& right);
  const char* code;  ///< Empty: none.
  const char* words;
};

const RenderedSet& tilted() {
  static const RenderedSet set([] {
    scene::Scene scene = *scene::makePreset("ring_640_small");
    scene.left_from_board.clear();
    for (const scene::PoseWish& wish :
         {scene::PoseWish{15.0, -12.0, 0.0, 0.9}, scene::PoseWish{-18.0, 10.0, 0.0, 0.75}})
      scene.left_from_board.push_back(scene::fitPose(scene.rig, scene.board, wish));
    return scene;
  }());
  return set;
}

void add(Json& camera, const char* key, double value) { camera[key] = camera[key].get<double>() + value; }
void turn(Json& camera, const char* key, double last) { camera[key] = last - camera[key].get<double>(); }

class OtherCalibrationInACheck : public ::testing::TestWithParam<Other> {};

TEST_P(OtherCalibrationInACheck, TellsItAndNoCauses) {
  const CopiedSet set(tilted());
  Json calibration = Json::parse(set.read("calib.json"));
  GetParam().change(calibration["IR_L"], calibration["IR_R"]);
  set.write("calib.json", calibration.dump());
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  const Check check = set.check(options);
  ASSERT_TRUE(check.diagnosis) << check.status.text;
  EXPECT_FALSE(set.parent.has("corrected.json"));
  EXPECT_TRUE(check.diagnosis->causes.empty());
  const std::string code = GetParam().code;
  std::vector<std::string> texts;
  for (const Warning& each : check.warnings) {
    // Rows that are far off may give a pair up.
    if (each.code == "nothing_to_correct" || (!code.empty() && each.code == "pairs_given_up")) continue;
    EXPECT_EQ(each.code, code) << each.text;
    texts.push_back(each.text);
  }
  if (code.empty()) return;
  EXPECT_THAT(texts, ElementsAre(HasSubstr(GetParam().words)));
  EXPECT_THAT(check.diagnosis->text, HasSubstr("first see to the warning " + code));
}

INSTANTIATE_TEST_SUITE_P(All, OtherCalibrationInACheck,
                         ::testing::Values(Other{"Right", [](Json&, Json&) {}, "", ""},
                                           Other{"CropOfATenthOfTheRows",
                                                 [](Json& left, Json& right) {
                                                   for (Json* camera : {&left, &right}) add(*camera, "Cy", 51.2);
                                                 },
                                                 "calibration_mismatch", "about 0 columns and 51 rows apart"},
                                           Other{"CropOfAFortiethOfTheRows",
                                                 [](Json& left, Json& right) {
                                                   for (Json* camera : {&left, &right}) add(*camera, "Cy", 13.0);
                                                 },
                                                 "calibration_mismatch", "about 0 columns and 13 rows apart"},
                                           Other{"CxFromTheRight",
                                                 [](Json& left, Json& right) {
                                                   for (Json* camera : {&left, &right}) turn(*camera, "Cx", 639.0);
                                                 },
                                                 "calibration_mismatch",
                                                 "as if its Cx were counted from the right edge"},
                                           Other{"MirroredLeftToRight",
                                                 [](Json& left, Json& right) {
                                                   for (Json* camera : {&left, &right}) {
                                                     turn(*camera, "Cx", 639.0);
                                                     turn(*camera, "P2", 0.0);
                                                   }
                                                 },
                                                 "calibration_mismatch", "mirrored left to right"},
                                           Other{"LensesExchanged",
                                                 [](Json& left, Json& right) {
                                                   for (auto& [key, value] : left.items()) std::swap(value, right[key]);
                                                 },
                                                 "lenses_exchanged", "through the lens of the other camera"}),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace polarline
