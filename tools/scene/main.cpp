#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>

#include "tools/scene/Presets.h"
#include "tools/scene/WriteScene.h"

namespace {

constexpr int kCannotWrite = 1;
constexpr int kWrongUse = 2;

int listPresets() {
  for (const scene::PresetInfo& info : scene::presetInfos()) fmt::print("{:<20}{}\n", info.name, info.note);
  return 0;
}

int renderPreset(const std::string& preset, const std::string& folder, const scene::PresetOptions& options) {
  const std::optional<scene::Scene> made = scene::makePreset(preset, options);
  if (!made) {
    fmt::print(stderr, "there is no preset {}; \"scene list\" shows them\n", preset);
    return kWrongUse;
  }
  scene::writeScene(*made, folder);
  fmt::print("{}: {} pairs in {}\n", preset, made->left_from_board.size(), folder);
  return 0;
}

int run(int argc, char** argv) {
  CLI::App app(
      "Renders calibration boards seen by stereo cameras, with known truth.\nExit codes: 0 done, 1 cannot write, 2 "
      "wrong use.");
  app.name("scene");
  app.require_subcommand(1);
  CLI::App* list = app.add_subcommand("list", "Shows the presets");
  CLI::App* render = app.add_subcommand("render", "Renders a preset into a folder, a complete input of a run");

  std::string preset, folder;
  scene::PresetOptions options;
  render->add_option("PRESET", preset, "Name of the preset")->required();
  render->add_option("FOLDER", folder, "Folder to write into; made if it is not there")->required();
  render->add_option("--pairs", options.pairs, "Number of image pairs instead of the preset's own")
      ->check(CLI::Range(1, 1000));
  render->add_option("--seed", options.seed, "Seed of the noise");
  render->add_option("--noise", options.read_noise, "Read noise in greys; 0 takes all noise away")
      ->check(CLI::Range(0.0, 255.0));

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kWrongUse;
  }
  return list->parsed() ? listPresets() : renderPreset(preset, folder, options);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return kCannotWrite;
  }
}
