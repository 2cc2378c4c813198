#include "tools/scene/SceneFields.h"

#include "tools/scene/RigFields.h"

namespace scene {
namespace {

constexpr double kFar = 1e6;  ///< Farther than any board stands, in board units.

void radiiFields(Fields& f, const char* key, MarkRadii& radii) {
  f.object(key, [&](Fields& inner) {
    inner.number("outer", radii.outer, {0.01, 2.0});
    inner.number("hollow", radii.hollow, {0.0, 2.0});
    inner.number("core", radii.core, {0.0, 2.0});
  });
}

void boardFields(Fields& f, Board& board) {
  auto kind = static_cast<std::size_t>(board.kind);
  f.choice("kind", kind, {"small_rings", "big_rings", "mixed_rings", "big_dots"});
  board.kind = static_cast<BoardKind>(kind);
  f.integer("rows", board.rows, {5, 255});
  f.integer("cols", board.cols, {5, 255});
  f.number("step", board.step, {1e-3, 1e4});
  f.number("step_y", board.step_y, {0.0, 1e4});
  f.integer("inner_width", board.inner_width, {3, 255});
  f.integer("inner_height", board.inner_height, {3, 255});
  f.integer("outter_width", board.outter_width, {3, 255});
  f.integer("outter_height", board.outter_height, {3, 255});
  f.number("dot_radius", board.dot_radius, {0.01, 0.5});
  radiiFields(f, "small_ring", board.small_ring);
  radiiFields(f, "small_solid", board.small_solid);
  radiiFields(f, "big_ring", board.big_ring);
  radiiFields(f, "big_solid", board.big_solid);
  radiiFields(f, "big_dot", board.big_dot);
  f.number("margin", board.margin, {0.5, 100.0});
}

void opticsFields(Fields& f, Optics& o) {
  f.number("paper", o.paper, {0.0, 255.0});
  f.number("ink", o.ink, {0.0, 255.0});
  f.number("surround", o.surround, {0.0, 255.0});
  f.number("texture", o.texture, {0.0, 255.0});
  f.number("blur_sigma", o.blur_sigma, {0.0, 20.0});
  f.number("vignette", o.vignette, {0.0, 1.0});
  f.number("gradient_x", o.gradient_x, {-1.0, 1.0});
  f.number("gradient_y", o.gradient_y, {-1.0, 1.0});
  f.number("read_noise", o.read_noise, {0.0, 255.0});
  f.number("shot_noise", o.shot_noise, {0.0, 255.0});
  f.integer("bits", o.bits, {8, 16});
  f.integer("channels", o.channels, {1, 3});
  auto& [blue, green, red] = o.channel_gain;
  f.numbers("channel_gain", {&blue, &green, &red}, {0.0, 10.0});
  f.integer("supersampling", o.supersampling, {1, 64});
}

void poseFields(Fields& f, PoseRecipe& pose) {
  if (f.has("rotation") || f.has("translation")) pose = PlacedPose{};
  if (auto* placed = std::get_if<PlacedPose>(&pose)) {
    auto& [r, t] = *placed;
    f.numbers("rotation", {&r.rx, &r.ry, &r.rz}, {-360.0, 360.0});
    f.numbers("translation", {&t.x, &t.y, &t.z}, {-kFar, kFar});
    return;
  }
  auto& wish = std::get<PoseWish>(pose);
  f.number("tilt_x", wish.tilt_x, {-80.0, 80.0});
  f.number("tilt_y", wish.tilt_y, {-80.0, 80.0});
  f.number("roll", wish.roll, {-360.0, 360.0});
  f.number("fill", wish.fill, {0.05, 1.0});
}

void settingsFields(Fields& f, RunSettings& s) {
  f.number("f_scale", s.f_scale, {0.05, 20.0});
  f.integer("id_method", s.id_method, {0, 1});
  f.integer("bin_method", s.bin_method, {0, 2});
  f.flag("rectified", s.rectified);
  f.integers("frame_ids", s.frame_ids, {0, 255.0 * 255.0 - 1.0});
}

void misalignmentFields(Fields& f, Misalignment& m) {
  f.number("rotation_x", m.rotation_x, {-45.0, 45.0});
  f.number("rotation_y", m.rotation_y, {-45.0, 45.0});
  f.number("rotation_z", m.rotation_z, {-45.0, 45.0});
  f.number("focal_ratio", m.focal_ratio, {-0.5, 0.5});
  f.number("row_offset", m.row_offset, {-1e4, 1e4});
  f.number("baseline_y", m.baseline_y, {-kFar, kFar});
  f.number("baseline_z", m.baseline_z, {-kFar, kFar});
  f.number("k1", m.k1, {-10.0, 10.0});
}

}  // namespace

void sceneFields(Fields& f, SceneRecipe& recipe) {
  f.text("name", recipe.name);
  f.text("note", recipe.note);
  f.object("board", [&](Fields& inner) { boardFields(inner, recipe.board); });
  f.object("rig", [&](Fields& inner) { rigFields(inner, recipe.rig); });
  if (f.has("given") && !recipe.given) recipe.given = recipe.rig;
  if (recipe.given) f.object("given", [&](Fields& inner) { rigFields(inner, *recipe.given); });
  f.object("misalignment", [&](Fields& inner) { misalignmentFields(inner, recipe.misalignment); });
  f.list(
      "poses", recipe.poses.size(), [&](std::size_t size) { recipe.poses.assign(size, PoseWish{}); },
      [&](Fields& inner, std::size_t index) { poseFields(inner, recipe.poses[index]); });
  f.object("optics", [&](Fields& inner) { opticsFields(inner, recipe.optics); });
  f.seed("seed", recipe.seed);
  f.object("settings", [&](Fields& inner) { settingsFields(inner, recipe.settings); });
}

}  // namespace scene
