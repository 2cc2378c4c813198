#pragma once

#include <functional>
#include <opencv2/core.hpp>
#include <vector>

#include "diagnose/warnings/BoardPlace.h"

namespace diagnose {

/// A board as one picture shows it.
struct SeenBoard {
  const CalibratedCamera* camera = nullptr;
  std::vector<BoardSight> sights;
  cv::Size size;  ///< Of the picture.
};

/// Changes a sight into what the calibration's own pictures would have shown.
using PictureChange = std::function<void(BoardSight& sight, const SeenBoard& seen)>;

/// About pixel corners, as pictures are scaled.
PictureChange resized(double times);
PictureChange shifted(const cv::Point2d& by);
/// With the board, else its back would be seen.
PictureChange mirrored(bool is_x, bool is_y);
/// As if Cx and Cy were counted from the right and from the lower edge, and nothing else of the lens were turned.
PictureChange countedFromOtherEdge(bool is_x, bool is_y);
PictureChange rowsApart(double times);

/// What the board misses each picture's dots by once they are changed, root mean square, in pixels of the changed
/// pictures; infinite where it does not meet them at all.
std::vector<double> misfitsWith(const std::vector<SeenBoard>& pictures, const PictureChange& change);

/// Root mean square of some.
double rmsOf(const std::vector<double>& values);

}  // namespace diagnose
