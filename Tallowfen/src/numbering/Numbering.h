#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// What one numbering works on, from the markers to the seeds. Lives for one detection.
struct Numbering {
  std::vector<cv::Point2f> marker_image_points;  ///< Pixels.
  std::vector<cv::Point2f> marker_model_points;  ///< Board columns and rows times the layout's scale.
  std::vector<std::int32_t> seed_indices;        ///< Positions in the ellipse list of the 3 x 3 seed block, row by row.
};

/// Numbered and unnumbered results of one detection, each point beside its ellipse.
struct NumberedPoints {
  std::vector<CtrlPoint> points;
  std::vector<Ellipse> identified_ellipses;
  std::vector<CtrlPoint> unidentified;
  std::vector<Ellipse> unidentified_ellipses;
};

}  // namespace kestrune
