#include "board/marks/DetectorConfig.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace boards {
namespace {

using polarline::BoardDescription;
using polarline::BoardKind;

/// Land marks are told in tenths of a pitch where ids grow from the markers.
constexpr int kTenths = 10;

/// A pitch without its fraction, as the detector cuts it; of what no board has, the nearest whole number.
int cut(double step) {
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::fmin(std::fmax(step, 0.0), kMost));
}

std::uint16_t narrow(int value) { return static_cast<std::uint16_t>(value); }

void enterLandMarks(const BoardDescription& board, kestrune::RingTargetConfig& config) {
  const LandMarkUnit unit = landMarkUnit(board);
  const auto x = [&](std::size_t mark) { return narrow(board.land_marks.at(mark).column * unit.x); };
  const auto y = [&](std::size_t mark) { return narrow(board.land_marks.at(mark).row * unit.y); };
  config.land_mark_switch = kestrune::kSwitchedOn;
  config.land_mark1_x = x(0);
  config.land_mark1_y = y(0);
  config.land_mark2_x = x(1);
  config.land_mark2_y = y(1);
  config.land_mark3_x = x(2);
  config.land_mark3_y = y(2);
  config.land_mark4_x = x(3);
  config.land_mark4_y = y(3);
}

}  // namespace

bool isRingBoard(const BoardDescription& board) { return board.kind != BoardKind::kBigDots; }

double rowStep(const BoardDescription& board) { return board.step_y == 0.0 ? board.step : board.step_y; }

kestrune::RingTargetConfig detectorConfig(const BoardDescription& board) {
  kestrune::RingTargetConfig config;
  config.rows = narrow(board.rows);
  config.cols = narrow(board.cols);
  config.inner_width = narrow(board.inner_width);
  config.inner_height = narrow(board.inner_height);
  config.outter_width = narrow(board.outter_width);
  config.outter_height = narrow(board.outter_height);
  config.step = static_cast<float>(board.step);
  config.step_y = static_cast<float>(rowStep(board));
  config.ratio_solid = static_cast<float>(board.dot_radius);
  config.board_type = isRingBoard(board) ? 2 : kestrune::kBigDotBoard;
  config.ratio_big_ring = static_cast<float>(isRingBoard(board) ? board.big_ring.outer : board.big_dot.outer);
  config.id_method = static_cast<std::uint16_t>(board.numbering);
  if (!board.land_marks.empty()) enterLandMarks(board, config);
  return config;
}

kestrune::MarkerSizes markerSizes(const BoardDescription& board) {
  kestrune::MarkerSizes sizes;
  sizes.rings_small = board.kind == BoardKind::kSmallRings || board.kind == BoardKind::kMixedRings;
  sizes.solid_big = board.kind == BoardKind::kBigRings || board.kind == BoardKind::kMixedRings;
  sizes.big_dot_board = board.kind == BoardKind::kBigDots;
  return sizes;
}

LandMarkUnit landMarkUnit(const BoardDescription& board) {
  if (board.numbering == polarline::BoardNumbering::kGrowth) return {kTenths, kTenths};
  return {cut(board.step), cut(rowStep(board))};
}

}  // namespace boards
