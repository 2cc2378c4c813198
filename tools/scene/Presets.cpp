#include "tools/scene/Presets.h"

#include <array>
#include <numbers>

#include "tools/scene/PresetBoards.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Single.h"

namespace scene {
namespace {

constexpr RigSize k320{320, 256, 60.0};
constexpr RigSize k640{640, 512, 60.0};
constexpr RigSize k1280{1280, 1024, 60.0};
constexpr RigSize k2448{2448, 2048, 60.0};

/// How far the poses of a preset are tilted.
enum class Tilt { kLittle, kUsual };

/// A preset before its poses are found.
struct Draft {
  SceneRecipe recipe;
  int pairs = 1;
  double fill = 0.92;
  Tilt tilt = Tilt::kUsual;
};

Draft draft(const StereoRig& rig, const Board& board, int pairs) {
  Draft d;
  d.recipe.rig = rig;
  d.recipe.board = board;
  d.pairs = pairs;
  return d;
}

Draft little(Draft d) {
  d.tilt = Tilt::kLittle;
  return d;
}

/// Dots as big as they come on the widest image.
Draft defaultBoard() {
  Draft d = little(draft(brownRig({4096, 3072, 60.0}), defaultRingBoard(), 1));
  d.fill = 0.97;
  return d;
}

Draft threeChannels() {
  Draft d = draft(brownRig(k640), smallRingBoard(), 1);
  d.recipe.optics.channels = 3;
  return d;
}

Draft tenBits() {
  Draft d = draft(brownRig(k1280), bigDotBoard(29, 31), 1);
  d.recipe.optics.bits = 10;
  return d;
}

Draft brightDots() {
  // Bright dots count from some 60 outline points on, so they must be large and alike.
  Draft d = little(draft(brownRig(k1280), bigDotBoard(17, 19), 1));
  d.recipe.optics.paper = 25.0;
  d.recipe.optics.ink = 215.0;
  d.recipe.optics.surround = 40.0;
  return d;
}

Draft searchNumbering() {
  Draft d = little(draft(brownRig(k2448), bigDotBoard(35, 37), 1));
  d.recipe.settings.id_method = 1;
  return d;
}

Draft binarisation(int method) {
  Draft d = little(draft(brownRig(k2448), method == 1 ? bigDotBoard(15, 17) : bigDotBoard(35, 37), 1));
  d.recipe.settings.bin_method = method;
  // The edge binarisation keeps a fixed share of all pixels: few dots, and nothing else that has an edge.
  if (method == 1) {
    d.fill = 0.7;
    d.recipe.optics.surround = d.recipe.optics.paper;
    d.recipe.optics.texture = 0.0;
  }
  return d;
}

Draft fisheye() {
  Draft d = draft(fisheyeRig({1280, 800, 50.0}), bigDotBoard(13, 21), 2);
  d.recipe.settings.f_scale = 0.75;
  return d;
}

Draft polynomial() { return draft(polyLenses({1920, 1200, 60.0}), bigDotBoard(27, 41), 2); }

Draft misaligned() {
  constexpr double kOff = 0.05 * std::numbers::pi / 180.0;
  Draft d = draft(brownRig(k1280), bigDotBoard(21, 23), 2);
  d.recipe.given = d.recipe.rig;
  Angles& angles = d.recipe.given->right_from_left_angles;
  angles.rx = single(angles.rx + kOff);
  angles.rz = single(angles.rz + kOff);
  return d;
}

Draft rectified() {
  Draft d = draft(rectifiedRig(k1280), bigDotBoard(21, 23), 3);
  d.recipe.settings.rectified = true;
  return d;
}

Draft frame() {
  Draft d = draft(brownRig(k1280), bigDotBoard(21, 23), 1);
  d.recipe.settings.frame_ids = {26, 56, 85, 110, 347, 377, 406, 431};
  return d;
}

struct Preset {
  const char* name;
  const char* note;
  Draft (*make)();
};

constexpr std::array kPresets{
    Preset{"ring_320", "17 x 15 small rings, 320 x 256",
           [] { return little(draft(brownRig(k320), smallRingBoard(), 2)); }},
    Preset{"ring_640", "37 x 35 small rings, 640 x 512",
           [] { return little(draft(brownRig(k640), largeRingBoard(BoardKind::kSmallRings), 3)); }},
    Preset{"ring_640_small", "17 x 15 small rings, 640 x 512",
           [] { return draft(brownRig(k640), smallRingBoard(), 2); }},
    Preset{"ring_small", "37 x 35 small rings, 2448 x 2048",
           [] { return draft(brownRig(k2448), largeRingBoard(BoardKind::kSmallRings), 2); }},
    Preset{"ring_big", "37 x 35 big rings that cover their neighbours, 2448 x 2048",
           [] { return draft(brownRig(k2448), largeRingBoard(BoardKind::kBigRings), 1); }},
    Preset{"ring_640_big", "37 x 35 big rings, 640 x 512",
           [] { return little(draft(brownRig(k640), largeRingBoard(BoardKind::kBigRings), 1)); }},
    Preset{"ring_mixed", "37 x 35 small rings and a big solid ring, 2448 x 2048",
           [] { return draft(brownRig(k2448), largeRingBoard(BoardKind::kMixedRings), 1); }},
    Preset{"ring_default_board", "73 x 71 small rings, 4096 x 3072", defaultBoard},
    Preset{"ring_640_bgr", "17 x 15 small rings, three channels, 640 x 512", threeChannels},
    Preset{"big_320", "23 x 21 big-dot board, 320 x 256",
           [] { return little(draft(brownRig(k320), bigDotBoard(21, 23), 1)); }},
    Preset{"big_640", "23 x 21 big-dot board, 640 x 512", [] { return draft(brownRig(k640), bigDotBoard(21, 23), 2); }},
    Preset{"big_1280", "31 x 29 big-dot board, 1280 x 1024",
           [] { return draft(brownRig(k1280), bigDotBoard(29, 31), 3); }},
    Preset{"big_1280_10bit", "the same, 10-bit values in 16 bits", tenBits},
    Preset{"big_1280_bright", "19 x 17 bright dots on a dark board, 1280 x 1024", brightDots},
    Preset{"big_2448", "37 x 35 big-dot board, 2448 x 2048",
           [] { return draft(brownRig(k2448), bigDotBoard(35, 37), 1); }},
    Preset{"big_2448_search", "the same, numbered by homography search", searchNumbering},
    Preset{"big_2448_bin1", "17 x 15 big-dot board, edge binarisation, 2448 x 2048", [] { return binarisation(1); }},
    Preset{"big_2448_bin2", "37 x 35 big-dot board, third binarisation, 2448 x 2048", [] { return binarisation(2); }},
    Preset{"fisheye_1280", "21 x 13 big-dot board through fisheyes, 1280 x 800", fisheye},
    Preset{"poly_1920", "41 x 27 big-dot board through 6 x 4 polynomial cells, 1920 x 1200", polynomial},
    Preset{"misaligned_1280", "the given calibration is off by 0.05 degrees about x and z", misaligned},
    Preset{"rectified_1280", "two equal pinholes side by side, 1280 x 1024", rectified},
    Preset{"frame_1280", "eight fixed points with their expected pixels, 1280 x 1024", frame}};

/// The tilts that the pairs take in turn.
PoseWish wishOf(Tilt tilt, int index, double fill) {
  constexpr std::array<PoseWish, 3> kUsual{{{6.0, -9.0, 3.0}, {-11.0, 8.0, -5.0}, {9.0, 7.0, 6.0}}};
  constexpr std::array<PoseWish, 3> kLittle{{{3.0, -4.0, 2.0}, {-4.0, 3.0, -2.0}, {4.0, 5.0, 1.0}}};
  const auto turn = static_cast<std::size_t>(index) % 3;
  PoseWish wish = tilt == Tilt::kLittle ? kLittle.at(turn) : kUsual.at(turn);
  wish.roll += 0.7 * (index / 3);  // NOLINT(bugprone-integer-division): a whole round of tilts is meant
  wish.fill = fill;
  return wish;
}

SceneRecipe finished(const Draft& d, const PresetOptions& options) {
  SceneRecipe recipe = d.recipe;
  const int pairs = options.pairs.value_or(d.pairs);
  for (int index = 0; index < pairs; ++index) recipe.poses.emplace_back(wishOf(d.tilt, index, d.fill));
  recipe.seed = options.seed.value_or(recipe.seed);
  if (options.read_noise) setNoise(recipe.optics, *options.read_noise);
  return recipe;
}

}  // namespace

std::vector<PresetInfo> presetInfos() {
  std::vector<PresetInfo> infos;
  infos.reserve(kPresets.size());
  for (const Preset& preset : kPresets) infos.push_back({preset.name, preset.note});
  return infos;
}

std::vector<std::string> presetNames() {
  std::vector<std::string> names;
  names.reserve(kPresets.size());
  for (const Preset& preset : kPresets) names.emplace_back(preset.name);
  return names;
}

std::optional<SceneRecipe> presetRecipe(const std::string& name, const PresetOptions& options) {
  for (const Preset& preset : kPresets) {
    if (name != preset.name) continue;
    SceneRecipe recipe = finished(preset.make(), options);
    recipe.name = preset.name;
    recipe.note = preset.note;
    return recipe;
  }
  return std::nullopt;
}

std::optional<Scene> makePreset(const std::string& name, const PresetOptions& options) {
  const std::optional<SceneRecipe> recipe = presetRecipe(name, options);
  if (!recipe) return std::nullopt;
  return sceneOf(*recipe);
}

}  // namespace scene
