#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "diagnose/quality/DotFrames.h"

namespace diagnose {

/// A pixel near a dot.
struct NearPixel {
  double grey = 0.0;
  double reach = 0.0;  ///< Distance from the dot's centre on the board, column steps.
  /// Pixels that one column step of `reach` takes at this place, at right angles to the circles around the centre.
  double pixels_a_step = 0.0;
  double normal = 0.0;  ///< Direction of that, radians from the rows.
  double bend = 0.0;    ///< Response to noise, grey: Immerkaer's operator on the pixels around. 0 at the picture's rim.
};

/// A dot as its pixels show it.
struct DotLook {
  double dot = 0.0, ground = 0.0;  ///< Greys of its middle and between it and its neighbours.
  double radius = 0.0;             ///< Column steps: of the disc that takes away as much light.
  double axes_scale = 0.0;         ///< Pixels a column step, geometric mean of both axes.
  std::vector<NearPixel> pixels;   ///< Nearer than half a step.
};

/// Looks at the surround of a dot; none where it leaves the picture or has no middle. `picture`: grey, CV_32F.
std::optional<DotLook> lookAtDot(const cv::Mat& picture, const DotFrame& frame, double row_step);

}  // namespace diagnose
