#include "check/document/InputsPart.h"

#include <array>
#include <cstddef>
#include <vector>

namespace polarline {
namespace {

void writeCamera(JsonText& json, const char* name, const CameraNumbers& camera) {
  json.key(name).object().member("fx", camera.fx).member("fy", camera.fy);
  json.member("cx", camera.cx).member("cy", camera.cy).list("coefficients", camera.coefficients).end();
}

void writeSettings(JsonText& json, const std::vector<Setting>& settings) {
  json.key("settings").object();
  for (const Setting& setting : settings) json.key(setting.key).raw(setting.json);
  json.end();
}

void writeBoard(JsonText& json, const BoardInfo& board) {
  json.key("board").object().member("type", board.type).member("rows", board.rows);
  json.member("cols", board.cols).member("step", static_cast<float>(board.step));
  json.member("step_y", static_cast<float>(board.step_y)).member("points", board.points).end();
}

void writeCameras(JsonText& json, const Cameras& cameras) {
  json.key("cameras").object().member("type", cameras.type).member("model", cameras.model);
  json.member("width", cameras.width).member("height", cameras.height);
  writeCamera(json, "left", cameras.left);
  writeCamera(json, "right", cameras.right);
  static constexpr std::array kNames = {"rx", "ry", "rz", "tx", "ty", "tz"};
  json.key("extrinsics");
  if (cameras.extrinsics.empty()) {
    json.null().end();
    return;
  }
  json.object();
  for (std::size_t k = 0; k < cameras.extrinsics.size(); ++k) json.member(kNames.at(k), cameras.extrinsics[k]);
  json.end().end();
}

}  // namespace

void writeSet(JsonText& json, const Check& check) {
  json.key("set").object().member("name", check.name).member("folder", check.folder).member("id", check.id);
  json.key("inputs").array();
  for (const SetInput& input : check.inputs) {
    json.object().member("role", input.role).member("path", input.path).member("sha256", input.sha256).end();
  }
  json.end().end();
}

void writeConditions(JsonText& json, const Check& check) {
  writeSettings(json, check.settings);
  writeBoard(json, check.board);
  writeCameras(json, check.cameras);
}

}  // namespace polarline
