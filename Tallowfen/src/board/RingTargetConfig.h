#pragma once

#include <cstdint>
#include <vector>

namespace kestrune {

/// The board type with four big dots for markers; the others bear rings.
inline constexpr std::int32_t kBigDotBoard = 3;

/// Value of a `..._switch` field that switches on; every other one switches off.
inline constexpr std::uint16_t kSwitchedOn = 1;

/// Values of `id_method`: numbering grows from a seed block, or every dot is searched in the board's grid.
inline constexpr std::uint16_t kIdsByGrowth = 0;
inline constexpr std::uint16_t kIdsBySearch = 1;

/// Value of `bin_blocksize` when it is not configured, or is 0.
inline constexpr std::int32_t kDefaultBlocksize = 200;

/// Geometry of a board and limits of its detection. The fields bear their configuration keys' names.
struct RingTargetConfig {
  std::uint16_t seed = 0;              ///< Not read: kept because configurations carry it.
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
  float ratio_big_ring = 0.4F;         ///< Big ring radius as a share of `step`. Not read: configurations carry it.
  std::uint16_t land_mark_switch = 0;  ///< On: the big dots stand at the land marks below.
  std::uint16_t land_mark1_x = 0;      ///< Tenths of the dot pitch with numbering by growth, board unit by search.
  std::uint16_t land_mark1_y = 0;
  std::uint16_t land_mark2_x = 0;
  std::uint16_t land_mark2_y = 0;
  std::uint16_t land_mark3_x = 0;
  std::uint16_t land_mark3_y = 0;
  std::uint16_t land_mark4_x = 0;
  std::uint16_t land_mark4_y = 0;
  std::uint16_t detection_switch = 0;              ///< On: keep only the ids of `detection_id`.
  std::vector<std::uint16_t> detection_id = {0};   ///< Four ids or more; fewer are no filter.
  std::uint16_t id_method = kIdsByGrowth;          ///< How the dots are numbered. Big dot boards only.
  std::uint16_t bin_method = 0;                    ///< Binarisation of the ellipse detector.
  float bin_thresh = 0.0F;                         ///< Not read: kept because configurations carry it.
  std::int32_t bin_blocksize = kDefaultBlocksize;  ///< Tile size of binarisation 0, pixels.
  float min_radius = 1.0F;                         ///< This and the next three: see `EllipseDetectorParams`.
  float max_radius = 50.0F;
  float max_sigma = 1.0F;
  float min_circularity = 0.8F;

  bool operator==(const RingTargetConfig&) const = default;
};

/// Dot pitch in y, board unit.
inline float rowPitchOf(const RingTargetConfig& config) { return config.step_y == 0.0F ? config.step : config.step_y; }

}  // namespace kestrune
