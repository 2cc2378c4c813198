#include "tools/scene/PolarText.h"

#include <fmt/format.h>

#include <array>

#include "tools/scene/BoardMarks.h"
#include "tools/scene/FramePoints.h"

namespace scene {
namespace {

std::string line(const std::string& key, const std::string& value) { return key + ": " + value + "\n"; }

/// The keys of the four points, for the prefix "Tri" or "Pol".
std::string fourPoints(const Board& board, const std::string& prefix) {
  const std::array<int, 4> ids = innerCornerIds(board);
  std::string text;
  for (std::size_t k = 0; k < 4; ++k)
    text += line(fmt::format("{}Point{}_ID", prefix, k + 1), fmt::format("{}", ids.at(k)));
  for (std::size_t k = 0; k < 4; ++k) {
    const Point3 p = gridPoint(board, ids.at(k) % board.cols, ids.at(k) / board.cols);
    text += line(fmt::format("{}Point{}_GT", prefix, k + 1), fmt::format("[{},{},{}]", p.x, p.y, p.z));
  }
  return text;
}

std::string frameKeys(const Scene& scene) {
  std::string ids, lefts, rights, places;
  for (const FramePoint& p : framePoints(scene)) {
    const char* comma = p.id == 1 ? "" : ",";
    ids += fmt::format("{}{}", comma, p.id);
    lefts += fmt::format("{}[{},{}]", comma, p.expected_left.x, p.expected_left.y);
    rights += fmt::format("{}[{},{}]", comma, p.expected_right.x, p.expected_right.y);
    places += fmt::format("{}[{},{},{}]", comma, p.point_board.x, p.point_board.y, p.point_board.z);
  }
  return line("Frame_ID", "[" + ids + "]") + line("Frame_IRL", "[" + lefts + "]") +
         line("Frame_IRR", "[" + rights + "]") + line("Frame_3D", "[" + places + "]") +
         line("Frame_ID_DIS", "[[1,2],[1,8],[3,6],[4,5],[2,7]]");
}

std::string generalKeys(const Scene& scene) {
  return line("type", fmt::format("{}", scene.settings.type)) + line("x_y", "0") +
         line("f_scale", fmt::format("{}", scene.settings.f_scale)) +
         "evaluation: 1\nsavepolarline: 1\nevalu_model: 0\ncrop: 0\ncropped_cols: 0\ncropped_rows: "
         "0\nallpoints_calc_switch: 1\n" +
         line("pattern_rows", fmt::format("{}", scene.board.rows)) +
         line("pattern_cols", fmt::format("{}", scene.board.cols)) +
         line("pattern_step", fmt::format("{}", scene.board.step)) +
         "triangulate_residual_switch: 1\ntriangulate_dis_switch: 1\neccentricity: 0\ndiscalswitch: 1\ndiscalsave: 1\n";
}

}  // namespace

std::string polarText(const Scene& scene) {
  const std::array<int, 4> ids = innerCornerIds(scene.board);
  const bool frame = !scene.settings.frame_ids.empty();
  std::string text = fmt::format("# {}\n", scene.name) + generalKeys(scene) + fourPoints(scene.board, "Tri") +
                     "tri_bias_savepng_swithch: 1\ntri_bias_divid: 0.1\ntir_bias_savecsv_swithch: 1\n"
                     "dy_bias_switch: 1\ndy_bias_divid: 0.1\ndy_bias_savecsv_swithch: 1\ndy_bias_savepng_swithch: 1\n"
                     "allpointssavecsv_swithch: 1\nfoursixmethod_swithch: 1\n" +
                     fourPoints(scene.board, "Pol") + line("oqc_switch", scene.settings.rectified ? "1" : "0") +
                     line("Cal_ID_DIS", fmt::format("[[{},{}],[{},{}]]", ids[0], ids[1], ids[2], ids[3])) +
                     line("frame_work", frame ? "1" : "0");
  if (frame) text += frameKeys(scene);
  return text + line("spaceRms_switch", "1");
}

}  // namespace scene
