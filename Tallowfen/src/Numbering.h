#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/Ellipse.h"

namespace kestrune {

using Ellipse = morvenkit::Ellipse<double>;
using CtrlPoint = morvenkit::CtrlPoint<double>;

/// Which of the two ring rectangles the markers span: what the marker recognition hands to the numbering.
struct MarkerSizes {
  bool rings_small = false;    ///< The four rings span the inner rectangle.
  bool solid_big = false;      ///< The solid ring belongs to the outer rectangle.
  bool big_dot_board = false;  ///< Four big dots instead of rings.
};

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
