#pragma once

#include <cstddef>
#include <limits>

/// What the pictures themselves are like: light, noise, sharpness, and how much of them the board fills. Measured
/// around the dots that were found; of a picture without any, of all its pixels. What can't be told is not a number.
namespace polarline {

/// One picture. Greys are its own values: 0 to 255, or of 10, 12, 14 or 16 bits; of colour the mean of the channels.
struct PictureQuality {
  static constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

  std::size_t dots = 0;         ///< Around which it was measured; 0: the levels are those of the whole picture.
  double full_scale = 0.0;      ///< Largest grey that its pixels can have: 2^bits - 1, of 16-bit pixels the fewest bits
                                ///< of 8, 10, 12, 14, 16 that hold all.
  double dot = kUnknown;        ///< Grey of the dots' middles, median. Without dots: the darkest twentieth lies below.
  double ground = kUnknown;     ///< Grey between the dots, median. Without dots: the brightest twentieth lies above.
  double contrast = kUnknown;   ///< Their difference as a share of the full scale, 0 to 1.
  double noise = kUnknown;      ///< Standard deviation of a pixel between the dots, greys (Immerkaer 1996).
  double saturated = kUnknown;  ///< Share of the pixels at the full scale, 0 to 1.
  double dot_radius = kUnknown;  ///< Of the plain dots, pixels, median over both axes of their outlines.
  /// Standard deviation of the blur across an edge, pixels, mean over all directions. A pixel's own width is in it:
  /// the sharpest picture has about 0.3.
  double edge_width = kUnknown;
  double edge_width_along = kUnknown;   ///< In the direction in which it is widest.
  double edge_width_across = kUnknown;  ///< At right angles to that.
  double blur_direction = kUnknown;     ///< Where it is widest: degrees from the rows, clockwise as seen, 0 to 180.
  double board_share = kUnknown;        ///< Of the picture's area that the dots span, 0 to 1.
};

/// Both pictures of a pair.
struct PairQuality {
  PictureQuality left, right;
  double coverage = PictureQuality::kUnknown;  ///< The smaller `board_share` of the two.
};

}  // namespace polarline
