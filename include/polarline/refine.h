#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "polarline/api.h"
#include "polarline/calibration.h"
#include "polarline/detect.h"

/// Dot centres that are several times closer to the truth than those of a detection, with what is known of their
/// errors. A dot's outline from the lines across its gradients (Ouellet and Hebert 2009), then a fit of the edge's grey
/// values with Tukey's weights (Beaton and Tukey 1974); the perspective of a circle is taken off (Heikkila 2000); the
/// least error that is possible is that of Rao (1945) and Cramer (1946). docs/how_it_measures/refined_centres.md.
namespace polarline {

/// What became of a dot.
enum class DotState : std::uint8_t {
  kRefined,
  kClipped,     ///< Its edge leaves the picture or is saturated away.
  kCovered,     ///< Something hides a part of its edge.
  kOverlapped,  ///< A neighbour touches its edge.
  kUnclear,     ///< Too small, too faint or too noisy for an edge to be followed.
};

/// The state in the word of the JSON document.
constexpr const char* nameOf(DotState state) {
  switch (state) {
    case DotState::kRefined:
      return "refined";
    case DotState::kClipped:
      return "clipped";
    case DotState::kCovered:
      return "covered";
    case DotState::kOverlapped:
      return "overlapped";
    case DotState::kUnclear:
      return "unclear";
  }
  return "unclear";
}

/// A dot of one picture. Pixels of the picture as it came; pixel centres have whole coordinates.
struct RefinedDot {
  std::int32_t id = 0;
  DotState state = DotState::kUnclear;
  double x = 0.0, y = 0.0;                  ///< Image of the circle's centre; not refined: the place that was given.
  double xx = 0.0, xy = 0.0, yy = 0.0;      ///< Covariance of that, square pixels; not numbers where not refined.
  double ellipse_x = 0.0, ellipse_y = 0.0;  ///< Centre of the imaged ellipse, which the perspective moves away.
  double edge_width = 0.0;                  ///< Standard deviation of the edge's blur, pixels; not a number: unknown.
};

/// The dots of one picture, refined; one each, in the order of the detection. Deterministic, thread-safe.
/// @param image      The picture that was searched.
/// @param detection  What was seen in it.
/// @param target     As for `detect`: the board, whose pose tells the perspective of its circles.
/// @param camera     The camera that took the picture, its lens included.
/// @param type       Of the lens, as `Calibration::type`.
/// Throws `InputError` for a picture of another size, a target that can't be used, and a type that is none.
POLARLINE_API std::vector<RefinedDot> refine(const cv::Mat& image, const Detection& detection,
                                             const std::string& target, const Camera& camera, int type);

}  // namespace polarline
