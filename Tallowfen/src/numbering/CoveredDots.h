#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/numbering/CellMap.h"

namespace kestrune {

/// Makes up the four dots right beside each big marker, which the marker covers, at the midpoints of its diagonal
/// neighbours: appends them to `all` and enters them in `cells`. A marker that is not alone in its cell, or has
/// a diagonal neighbour missing, gets none; of several ellipses in one diagonal cell the first that makes a
/// parallelogram stays in `cells`.
void addCoveredDots(const std::vector<cv::Point2f>& marker_model_points, CellMap& cells, std::vector<Ellipse>& all);

/// Whether the centres of the four diagonal neighbours of a marker (pixels) have their mean within 5 pixels of its own
/// centre and form a parallelogram, with opposite sides within 5 degrees of each other.
bool ParallelogramCheck(const cv::Point2f& marker, const cv::Point2f& upper_left, const cv::Point2f& lower_left,
                        const cv::Point2f& upper_right, const cv::Point2f& lower_right);

}  // namespace kestrune
