#pragma once

#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// The sequence of records in a document.
inline constexpr const char* kPatternsKey = "patterns";
/// The list of ids of a big dot board.
inline constexpr const char* kDetectionIdKey = "detection_id";

/// Calls `visit(key, field)` for each key of the board's geometry, in the order in which they are saved.
template <typename Config, typename Visitor>
void visitGeometryKeys(Config& config, const Visitor& visit) {
  visit("seed", config.seed);
  visit("rows", config.rows);
  visit("cols", config.cols);
  visit("inner_width", config.inner_width);
  visit("inner_height", config.inner_height);
  visit("outter_width", config.outter_width);
  visit("outter_height", config.outter_height);
  visit("board_type", config.board_type);
  visit("step", config.step);
  visit("ratio_solid", config.ratio_solid);
  visit("ratio_big_ring", config.ratio_big_ring);
}

/// The same for the keys that only a big dot board reads and that are 0 when absent, without the list of ids.
template <typename Config, typename Visitor>
void visitDetectionKeys(Config& config, const Visitor& visit) {
  visit("detection_switch", config.detection_switch);
  visit("land_mark_switch", config.land_mark_switch);
  visit("land_mark1_x", config.land_mark1_x);
  visit("land_mark1_y", config.land_mark1_y);
  visit("land_mark2_x", config.land_mark2_x);
  visit("land_mark2_y", config.land_mark2_y);
  visit("land_mark3_x", config.land_mark3_x);
  visit("land_mark3_y", config.land_mark3_y);
  visit("land_mark4_x", config.land_mark4_x);
  visit("land_mark4_y", config.land_mark4_y);
  visit("id_method", config.id_method);
  visit("bin_method", config.bin_method);
  visit("bin_thresh", config.bin_thresh);
  visit("bin_blocksize", config.bin_blocksize);
}

/// The same for the keys that only a big dot board reads and that keep the field's value when absent.
template <typename Config, typename Visitor>
void visitLimitKeys(Config& config, const Visitor& visit) {
  visit("min_radius", config.min_radius);
  visit("max_radius", config.max_radius);
  visit("max_sigma", config.max_sigma);
  visit("min_circularity", config.min_circularity);
  visit("step_y", config.step_y);
}

}  // namespace kestrune
