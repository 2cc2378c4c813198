#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/CtrlPoint.h"

/// What the picture of a frame's image shows. Centres and edges are in pixels of that image.
namespace frame_drawing {

using Points = std::vector<kestrune::morvenkit::CtrlPoint<double>>;

/// Small circles: a red one at each detected centre, green ones along its edge.
void drawDetected(cv::Mat& picture, const Points& points);

/// Red circles with the frame id beside them; an entry without a point stands at the origin as -1.
void drawMatched(cv::Mat& picture, const Points& points);

}  // namespace frame_drawing
