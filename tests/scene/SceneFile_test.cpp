#include "tools/scene/SceneFile.h"

#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>

#include "polarline/errors.h"
#include "support/Places.h"
#include "support/SchemaCheck.h"
#include "support/TempFolder.h"
#include "tools/scene/SceneChecks.h"
#include "tools/scene/TruthJson.h"

namespace {

using scene::parsedScene;
using scene::SceneRecipe;

SceneRecipe parsed(const std::string& text) { return parsedScene(text, "scene.json", {}); }

/// The message of what is refused, by the reader or by the checks.
std::string refusal(const std::string& text) {
  try {
    const SceneRecipe recipe = parsed(text);
    scene::checkRecipe(recipe, "scene.json");
    scene::checkPoses(recipe, scene::sceneOf(recipe), "scene.json");
  } catch (const polarline::InputError& error) {
    return error.what();
  }
  return "accepted";
}

TEST(SceneFile, NothingIsTheUsualPreset) {
  const SceneRecipe recipe = parsed("{}");
  EXPECT_EQ(recipe.name, "ring_640");
  EXPECT_EQ(recipe.poses.size(), 3U);
}

TEST(SceneFile, KeysReplaceWhatThePresetSays) {
  const SceneRecipe recipe = parsed(R"({"preset": "big_640", "name": "mine", "seed": 18446744073709551615,
      "board": {"rows": 23, "dot_radius": 0.25}, "optics": {"bits": 12, "channel_gain": [1, 0.5, 0.25]},
      "settings": {"f_scale": 0.8, "id_method": 1}, "misalignment": {"baseline_z": -1.5}})");
  EXPECT_EQ(recipe.name, "mine");
  EXPECT_EQ(recipe.seed, 18446744073709551615U);
  EXPECT_EQ(recipe.board.rows, 23);
  EXPECT_EQ(recipe.board.cols, 23);
  EXPECT_EQ(recipe.board.kind, scene::BoardKind::kBigDots);
  EXPECT_EQ(recipe.board.dot_radius, 0.25);
  EXPECT_EQ(recipe.optics.bits, 12);
  EXPECT_EQ(recipe.optics.channel_gain[2], 0.25);
  EXPECT_EQ(recipe.settings.f_scale, 0.8);
  EXPECT_EQ(recipe.settings.id_method, 1);
  EXPECT_EQ(recipe.misalignment.baseline_z, -1.5);
}

TEST(SceneFile, EveryPresetPrintedMakesTheSameSceneToTheLastDigit) {
  for (const std::string& name : scene::presetNames()) {
    const SceneRecipe printed = parsed(scene::sceneText(*scene::presetRecipe(name)));
    EXPECT_EQ(scene::sceneText(printed), scene::sceneText(*scene::presetRecipe(name))) << name;
    // The truth tells the board, the optics, the cameras, the poses and every dot.
    EXPECT_EQ(scene::truthJson(scene::sceneOf(printed)), scene::truthJson(*scene::makePreset(name))) << name;
  }
}

TEST(SceneFile, APlacedPoseIsTakenAsItIs) {
  const scene::Scene made =
      scene::sceneOf(parsed(R"({"poses": [{"rotation": [0, 0, 90], "translation": [10, 20, 900]}]})"));
  ASSERT_EQ(made.left_from_board.size(), 1U);
  const scene::Point3 point = scene::transformed(made.left_from_board[0], {100.0, 0.0, 0.0});
  EXPECT_NEAR(point.x, 10.0, 1e-12);
  EXPECT_NEAR(point.y, 120.0, 1e-12);
  EXPECT_EQ(point.z, 900.0);
}

TEST(SceneFile, PosesTakeTurnsWhereThereAreMorePairs) {
  const std::string two = R"("poses": [{"roll": 1}, {"roll": 2}])";
  const auto roll = [](const SceneRecipe& recipe, std::size_t index) {
    return std::get<scene::PoseWish>(recipe.poses.at(index)).roll;
  };
  const SceneRecipe three = parsed("{\"pairs\": 3, " + two + "}");
  ASSERT_EQ(three.poses.size(), 3U);
  EXPECT_EQ(roll(three, 1), 2.0);
  EXPECT_EQ(roll(three, 2), 1.0);
  const SceneRecipe one = parsedScene("{\"pairs\": 3, " + two + "}", "", {.pairs = 1, .seed = {}, .read_noise = {}});
  EXPECT_EQ(one.poses.size(), 1U);
}

TEST(SceneFile, OptionsWinOverTheFile) {
  const SceneRecipe recipe =
      parsedScene(R"({"seed": 3, "noise": 2.5})", "", {.pairs = 2, .seed = 9, .read_noise = 0.0});
  EXPECT_EQ(recipe.poses.size(), 2U);
  EXPECT_EQ(recipe.seed, 9U);
  EXPECT_EQ(recipe.optics.read_noise, 0.0);
  EXPECT_EQ(recipe.optics.shot_noise, 0.0);
  EXPECT_EQ(parsed(R"({"noise": 2.5})").optics.read_noise, 2.5);
}

TEST(SceneFile, GivenIsTheCalibrationAndTheRigTakesThePictures) {
  const scene::Scene made = scene::sceneOf(parsed(R"({"given": {"right": {"cy": 250}}})"));
  EXPECT_EQ(made.given.right.cy, 250.0);
  EXPECT_NE(made.rig.right.cy, 250.0);
  const scene::Scene off = scene::sceneOf(parsed(R"({"misalignment": {"row_offset": 0.5}})"));
  EXPECT_EQ(off.rig.right.cy, off.given.right.cy + 0.5);
}

/// A schema knows nothing of what keys must be to each other.
enum class BySchema { kToo, kNot };

struct Refused {
  const char* text;
  const char* message;  ///< Or how it begins.
  BySchema by_schema = BySchema::kToo;
};

class SceneFileRefuses : public testing::TestWithParam<Refused> {};

TEST_P(SceneFileRefuses, WithThePlaceWhatWasFoundAndWhatWasWanted) {
  EXPECT_EQ(refusal(GetParam().text).substr(0, std::string(GetParam().message).size()), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, SceneFileRefuses,
    testing::Values(
        Refused{"", "scene.json, line 1, column 1: found the end of the file, wanted a value in JSON"},
        Refused{"{\n\"seed\": 1,\n}",
                "scene.json, line 3, column 1, behind the key seed: found '}', wanted a key in double quotes"},
        Refused{"[]", "scene.json: found no JSON object"},
        Refused{R"({"seed": 1e999})", "scene.json: seed: found a number beyond"},
        Refused{R"({"schema": "polarline-scene/2"})",
                "scene.json: schema: found \"polarline-scene/2\", wanted one of polarline-scene/1"},
        Refused{R"({"preset": "ring"})", "scene.json: preset: found \"ring\", wanted one of ring_320, ring_640"},
        Refused{R"({"pairs": 0})", "scene.json: pairs: found 0, wanted a whole number from 1 to 1000"},
        Refused{R"({"seed": -1})", "scene.json: seed: found -1, wanted a whole number from 0 to 18446744073709551615"},
        Refused{R"({"board": []})", "scene.json: board: found [], wanted an object"},
        Refused{R"({"board": {"rows": "35"}})",
                "scene.json: board.rows: found \"35\", wanted a whole number from 5 to 255"},
        Refused{R"({"board": {"rows": 35.5}})", "scene.json: board.rows: found 35.5, wanted a whole number"},
        Refused{R"({"board": {"rowz": 35}})",
                "scene.json: board.rowz: found a key that nothing reads, wanted one of kind, rows, cols"},
        Refused{R"({"board": {"rows": 5, "rows": 7}})", "scene.json: board.rows: found twice in an object, wanted once",
                BySchema::kNot},
        Refused{R"({"board": {"kind": "rings"}})",
                "scene.json: board.kind: found \"rings\", wanted one of small_rings, big_rings, mixed_rings, big_dots"},
        Refused{R"({"board": {"small_ring": {"outer": 0}}})",
                "scene.json: board.small_ring.outer: found 0, wanted a number from 0.01 to 2"},
        Refused{R"({"board": {"inner_width": 39}})", "scene.json: board: found a marker in row 14, column -1, wanted",
                BySchema::kNot},
        Refused{R"({"rig": {"rotation": [1, 2]}})",
                "scene.json: rig.rotation: found [1,2], wanted a list of 3 numbers"},
        Refused{R"({"rig": {"rotation": [1, 2, null]}})", "scene.json: rig.rotation[2]: found null, wanted a number"},
        Refused{R"({"rig": {"cells": {"columns": 3}}})", "scene.json: rig.cells: found a key that nothing reads",
                BySchema::kNot},
        Refused{R"({"rig": {"model": "poly", "cells": {"columns": 6, "rows": 5}}})",
                "scene.json: rig.cells: found 6 x 5 cells, wanted at most 25", BySchema::kNot},
        Refused{R"({"rig": {"translation": [1, -60, 0]}})",
                "scene.json: rig.translation: found [1, -60, 0], wanted a right camera", BySchema::kNot},
        Refused{R"({"rig": {"focal": 1000000}})", "scene.json: rig.left: found focal lengths of 1000000 and",
                BySchema::kNot},
        Refused{R"({"given": {"width": 320}})", "scene.json: given: found another lens model or image size",
                BySchema::kNot},
        Refused{R"({"given": {}, "misalignment": {"k1": 0.1}})", "scene.json: misalignment: found beside \"given\"",
                BySchema::kNot},
        Refused{R"({"poses": []})", "scene.json: poses: found [], wanted a list of 1 to 1000 objects"},
        Refused{R"({"poses": [{}, {"fill": 2}]})",
                "scene.json: poses[1].fill: found 2, wanted a number from 0.05 to 1"},
        Refused{R"({"poses": [{"rotation": [0, 0, 0], "tilt_x": 3}]})",
                "scene.json: poses[0].tilt_x: found a key that nothing reads"},
        Refused{R"({"poses": [{"translation": [0, 0, -500]}]})",
                "scene.json: poses[0]: found the board beside or behind a camera", BySchema::kNot},
        Refused{R"({"rig": {"rotation": [0, 40, 0]}, "poses": [{"fill": 0.3}]})", "scene.json: poses[0]: found a board",
                BySchema::kNot},
        Refused{R"({"name": "a\nb: 1"})",
                "scene.json: name: found \"a\\nb: 1\", wanted a text without control characters"},
        Refused{R"({"optics": {"channels": 2}})", "scene.json: optics.channels: found 2, wanted 1 or 3"},
        Refused{R"({"settings": {"rectified": 1}})", "scene.json: settings.rectified: found 1, wanted true or false"},
        Refused{R"({"settings": {"rectified": true}})", "scene.json: settings.rectified: found true, wanted cameras",
                BySchema::kNot},
        Refused{R"({"preset": "frame_1280", "settings": {"frame_ids": [483]}})",
                "scene.json: settings.frame_ids: found 483, wanted ids from 0 to 482", BySchema::kNot}));

/// The published schema.
const SchemaCheck& schema() {
  static const SchemaCheck check(nlohmann::ordered_json::parse(
      TempFolder::contentOf(places::inProject("docs/schema/polarline-scene-1.schema.json"))));
  return check;
}

TEST(SceneFileSchema, DescribesEveryPrintedPreset) {
  for (const std::string& name : scene::presetNames()) {
    const std::string text = scene::sceneText(*scene::presetRecipe(name));
    EXPECT_EQ(schema().problem(nlohmann::ordered_json::parse(text)), "") << name;
    EXPECT_EQ(schema().problem({{"preset", name}}), "");
  }
}

/// Every key that the schema describes, set to the least that it allows, alone in its objects.
void addLeast(const nlohmann::ordered_json& root, const nlohmann::ordered_json& rule,
              const std::function<void(nlohmann::ordered_json)>& add) {
  if (rule.contains("$ref"))
    return addLeast(root, root.at(nlohmann::ordered_json::json_pointer(rule["$ref"].get<std::string>().substr(1))),
                    add);
  if (rule.contains("properties")) {
    for (const auto& [key, member] : rule["properties"].items())
      addLeast(root, member, [&add, name = key](const auto& least) { add({{name, least}}); });
  } else if (rule.contains("anyOf")) {
    for (const auto& each : rule["anyOf"]) addLeast(root, each, add);
  } else if (rule.value("type", "") == "array") {
    const auto count = rule.value("minItems", std::size_t{0});
    addLeast(root, rule["items"],
             [&](const auto& least) { add(nlohmann::ordered_json(nlohmann::ordered_json::array_t(count, least))); });
  } else if (rule.contains("enum")) {
    add(rule["enum"][0]);
  } else {
    const std::string type = rule.value("type", "");
    add(rule.contains("const") ? rule["const"]
        : type == "string"     ? nlohmann::ordered_json("text")
        : type == "boolean"    ? nlohmann::ordered_json(false)
                               : rule["minimum"]);
  }
}

TEST(SceneFileSchema, DescribesNothingThatTheReaderDoesNotTake) {
  const auto root = nlohmann::ordered_json::parse(
      TempFolder::contentOf(places::inProject("docs/schema/polarline-scene-1.schema.json")));
  std::size_t keys = 0;
  addLeast(root, root, [&](nlohmann::ordered_json document) {
    const std::string text = document.dump();
    if (text.find("cells") != std::string::npos) document.begin().value()["model"] = "poly";
    EXPECT_NO_THROW(parsed(document.dump())) << text;
    ++keys;
  });
  EXPECT_GT(keys, 100U);
}

TEST_P(SceneFileRefuses, AsTheSchemaDoesUnlessItIsBeyondOne) {
  const auto document = nlohmann::ordered_json::parse(GetParam().text, nullptr, false);
  const bool refused = document.is_discarded() || !schema().problem(document).empty();
  EXPECT_EQ(refused, GetParam().by_schema == BySchema::kToo) << schema().problem(document);
}

TEST(SceneFile, AFileThatCannotBeReadIsNamed) {
  const TempFolder folder;
  EXPECT_THROW(scene::readScene(folder.file("none.json"), {}), polarline::InputError);
  EXPECT_THROW(scene::readScene(folder.path().string(), {}), polarline::InputError);
  EXPECT_THROW(scene::readScene("/dev/zero", {}), polarline::InputError);
  EXPECT_EQ(scene::readScene(folder.write("blank name.json", "{\"name\": \"x\"}"), {}).name, "x");
}

TEST(SceneFile, TheExampleOfThePageIsOne) {
  const std::string page = TempFolder::contentOf(places::inProject("docs/formats/scene_file.md"));
  const std::size_t begin = page.find("```json") + 7;
  const SceneRecipe recipe = parsed(page.substr(begin, page.find("```", begin) - begin));
  EXPECT_EQ(recipe.name, "looks_down");
  EXPECT_EQ(recipe.misalignment.row_offset, -0.4);
  EXPECT_EQ(refusal(page.substr(begin, page.find("```", begin) - begin)), "accepted");
}

}  // namespace
