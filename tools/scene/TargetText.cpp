#include "tools/scene/TargetText.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

namespace scene {
namespace {

using Json = nlohmann::ordered_json;

void addBigDotKeys(Json& keys, const Scene& scene) {
  keys["detection_switch"] = 0;
  keys["detection_id"] = Json::array({0});
  keys["land_mark_switch"] = 0;
  for (int mark = 1; mark <= 4; ++mark) {
    keys[fmt::format("land_mark{}_x", mark)] = 0;
    keys[fmt::format("land_mark{}_y", mark)] = 0;
  }
  keys["id_method"] = scene.settings.id_method;
  keys["bin_method"] = scene.settings.bin_method;
  keys["bin_thresh"] = 0.0;
  keys["bin_blocksize"] = 200;
  keys["min_radius"] = 1.0;
  keys["max_radius"] = 50.0;
  keys["max_sigma"] = 1.0;
  keys["min_circularity"] = 0.8;
  keys["step_y"] = rowStep(scene.board);
}

/// Keys and values in the order of the files.
Json targetKeys(const Scene& scene) {
  const Board& board = scene.board;
  const bool big_dots = board.kind == BoardKind::kBigDots;
  Json keys;
  keys["seed"] = 0;
  keys["rows"] = board.rows;
  keys["cols"] = board.cols;
  keys["inner_width"] = board.inner_width;
  keys["inner_height"] = board.inner_height;
  keys["outter_width"] = board.outter_width;
  keys["outter_height"] = board.outter_height;
  keys["step"] = board.step;
  keys["board_type"] = big_dots ? 3 : 2;
  keys["ratio_solid"] = board.dot_radius;
  keys["ratio_big_ring"] = big_dots ? board.big_dot.outer : board.big_ring.outer;
  if (big_dots) addBigDotKeys(keys, scene);
  return keys;
}

}  // namespace

std::string targetIni(const Scene& scene) {
  const Json keys = targetKeys(scene);
  std::string text = fmt::format("# {}\n", scene.name);
  for (const auto& [key, value] : keys.items()) text += fmt::format("{}: {}\n", key, value.dump());
  return text;
}

std::string targetJson(const Scene& scene) {
  Json json;
  json["patterns"] = Json::array({targetKeys(scene)});
  return json.dump(4) + "\n";
}

std::string targetYaml(const Scene& scene) {
  const Json keys = targetKeys(scene);
  std::string text = "%YAML:1.0\n---\npatterns:\n   -\n";
  for (const auto& [key, value] : keys.items()) {
    text += value.is_array() ? fmt::format("      {}: [ {} ]\n", key, value[0].dump())
                             : fmt::format("      {}: {}\n", key, value.dump());
  }
  return text;
}

}  // namespace scene
