#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/ContourCounts.h"
#include "MorvenKit/Ellipse.h"

namespace kestrune {

/// The steps of a detection in their order. A detection that numbers nothing stopped at one of them.
enum class DetectionStep : std::uint8_t {
  kImage,        ///< The image or the target cannot be used.
  kContours,     ///< No contour in the two-valued image.
  kEllipses,     ///< No contour became an ellipse.
  kMarkers,      ///< The markers were not recognised among the ellipses.
  kArrangement,  ///< The markers don't stand as the board's do.
  kSeed,         ///< No marker has a whole block of 3 x 3 around it to begin the numbering with, or none is looked for.
  kGrowth,       ///< The numbering from the seed gave no point.
  kSearch,       ///< Too few ellipses stand in the board's grid (numbering by search).
  kFilter,       ///< Everything numbered was taken out, by the ids or the region that are wanted.
  kDone,         ///< One point or more is numbered.
};

/// The step's stable name, in small letters: "image", "contours", "ellipses", "markers", "arrangement", "seed",
/// "growth", "search", "filter", "done".
const char* nameOf(DetectionStep step);

/// How many ellipses of each class the image has, those that are masked out left out.
struct ClassCounts {
  std::size_t dots = 0;
  std::size_t rings = 0;
  std::size_t solid_rings = 0;
  std::size_t big_dots = 0;
  std::size_t unknown = 0;  ///< They look like a marker that is none.
};

/// Rings and solid rings by their size against the dots beside them. One of neither size counts nowhere. Filled where
/// the markers of a ring board were not recognised.
struct RingCounts {
  std::size_t small_rings = 0;
  std::size_t big_rings = 0;
  std::size_t small_solid_rings = 0;
  std::size_t big_solid_rings = 0;
};

/// What one detection saw and where it stopped. Filled along the way; nothing reads it there. While an exception passes
/// it is that of the step which threw.
struct DetectionTrace {
  DetectionStep step = DetectionStep::kImage;
  cv::Size working_size;  ///< Of the image that was searched.
  cv::Mat binary;         ///< Two-valued, of the working size; shared with nobody who changes it.
  morvenkit::ContourCounts contours;
  std::vector<morvenkit::Ellipse<double>> ellipses;  ///< All, with their classes; image pixels, as the target has them.
  ClassCounts classes;
  RingCounts rings;
  std::vector<cv::Point2f> markers;  ///< Centres of the markers that were recognised, image pixels.
  std::size_t fullest_block = 0;     ///< Dots in the fullest 3 x 3 block around a marker, up to 9.
  std::size_t matches = 0;           ///< Ellipses in the board's grid (numbering by search).
  std::size_t numbered = 0;          ///< Points before the filters.
  std::size_t kept = 0;              ///< Points behind them: the result.
};

}  // namespace kestrune
