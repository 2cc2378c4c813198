#pragma once

#include <cstdint>
#include <vector>

namespace kestrune {

/// The board type with four big dots for markers; the others bear rings.
inline constexpr std::int32_t kBigDotBoard = 3;

/// Geometry of a board and limits of its detection. The fields bear their configuration keys' names.
struct RingTargetConfig {
  std::uint16_t seed = 0;
  std::uint16_t rows = 71;             ///< Board rows of dots.
  std::uint16_t cols = 73;             ///< Board columns of dots.
  std::uint16_t inner_width = 17;      ///< Columns spanned by the small ring rectangle.
  std::uint16_t inner_height = 13;     ///< Rows spanned by it.
  std::uint16_t outter_width = 33;     ///< Columns spanned by the big ring rectangle.
  std::uint16_t outter_height = 25;    ///< Rows spanned by it.
  float step = 17.5F;                  ///< Dot pitch in x, board unit.
  float step_y = 17.5F;                ///< Dot pitch in y; 0: the same as `step`.
  std::int32_t board_type = 2;         ///< 1, 2: ring boards; 3: big dot board.
  float ratio_solid = 0.3F;            ///< Dot radius as a share of `step`.
  float ratio_big_ring = 0.4F;         ///< Big ring radius as a share of `step`.
  std::uint16_t land_mark_switch = 0;  ///< 1: the big dots stand at the land marks below.
  std::uint16_t land_mark1_x = 0;
  std::uint16_t land_mark1_y = 0;
  std::uint16_t land_mark2_x = 0;
  std::uint16_t land_mark2_y = 0;
  std::uint16_t land_mark3_x = 0;
  std::uint16_t land_mark3_y = 0;
  std::uint16_t land_mark4_x = 0;
  std::uint16_t land_mark4_y = 0;
  std::uint16_t detection_switch = 0;  ///< 1: keep only the ids of `detection_id`.
  std::vector<std::uint16_t> detection_id = {0};
  std::uint16_t id_method = 0;   ///< 0: numbering by growth; 1: by search.
  std::uint16_t bin_method = 0;  ///< Binarisation of the ellipse detector.
  float bin_thresh = 0.0F;
  std::int32_t bin_blocksize = 200;  ///< Tile size of binarisation 0, pixels.
  float min_radius = 1.0F;
  float max_radius = 50.0F;
  float max_sigma = 1.0F;
  float min_circularity = 0.8F;
};

}  // namespace kestrune
