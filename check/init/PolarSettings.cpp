#include "check/init/PolarSettings.h"

#include <cstddef>
#include <vector>

namespace init {
namespace {

/// Limit of a row difference and of a residual that tells good points from others in pictures and shares, pixels.
constexpr float kUsualLimit = 0.1F;

std::vector<double> placeOf(const polarline::BoardDescription& board, int id) {
  const polarline::BoardPoint point = polarline::boardPoints(board).at(static_cast<std::size_t>(id));
  return {point.x, point.y, point.z};
}

void setPoints(PolarConfig& config, const polarline::BoardDescription& board, const CornerIds& ids) {
  config.TriPoint1_ID = config.PolPoint1_ID = ids[0];
  config.TriPoint2_ID = config.PolPoint2_ID = ids[1];
  config.TriPoint3_ID = config.PolPoint3_ID = ids[2];
  config.TriPoint4_ID = config.PolPoint4_ID = ids[3];
  config.TriPoint1_GT = config.PolPoint1_GT = placeOf(board, ids[0]);
  config.TriPoint2_GT = config.PolPoint2_GT = placeOf(board, ids[1]);
  config.TriPoint3_GT = config.PolPoint3_GT = placeOf(board, ids[2]);
  config.TriPoint4_GT = config.PolPoint4_GT = placeOf(board, ids[3]);
  // The upper and the lower row, the left and the right column, the two diagonals.
  config.Cal_ID_DIS = {{ids[0], ids[1]}, {ids[2], ids[3]}, {ids[0], ids[2]},
                       {ids[1], ids[3]}, {ids[0], ids[3]}, {ids[1], ids[2]}};
}

void setOutputs(PolarConfig& config, bool has_cloud) {
  config.evaluation = 1;
  config.savepolarline = 1;
  config.tir_bias_savecsv_swithch = 1;
  config.dy_bias_savecsv_swithch = 1;
  config.dy_bias_savepng_swithch = 1;
  config.allpointssavecsv_swithch = has_cloud ? 1 : 0;
}

}  // namespace

bool hasMadeUpDots(polarline::BoardKind kind) {
  return kind == polarline::BoardKind::kBigRings || kind == polarline::BoardKind::kMixedRings;
}

PolarConfig polarSettings(const polarline::BoardDescription& board, const CornerIds& corners, const SetFacts& facts) {
  PolarConfig config;
  config.type = facts.type;
  config.f_scale = static_cast<float>(facts.focal.value);
  config.x_y = facts.is_vertical ? 1 : 0;
  // A picture of more than one channel ends that step, and the run with it.
  config.triangulate_residual_switch = facts.has_colour ? 0 : 1;
  config.triangulate_dis_switch = 1;
  config.discalswitch = !hasMadeUpDots(board.kind);
  config.spaceRms_switch = true;
  config.dy_bias_switch = 1;
  // The point cloud does not follow the quarter turn.
  config.foursixmethod_swithch = facts.is_vertical ? 0 : 1;
  const bool one_step = board.step_y == 0.0 || board.step_y == board.step;
  config.allpoints_calc_switch = one_step && !facts.is_vertical ? 1 : 0;
  config.pattern_rows = board.rows;
  config.pattern_cols = board.cols;
  config.pattern_step = static_cast<float>(board.step);
  config.dy_bias_divid = kUsualLimit;
  config.tri_bias_divid = kUsualLimit;
  setOutputs(config, !facts.is_vertical);
  setPoints(config, board, corners);
  return config;
}

}  // namespace init
