#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/Ellipse.h"

namespace kestrune::morvenkit {

/// Distance, pixels, of the point (x, y), given in the ellipse's own frame, from the nearer of the two places where the
/// line through it and the centre meets the ellipse of semi-axes a and b. Single precision throughout.
float radialResidual(float x, float y, float a, float b);

/// Root mean square residual of the points about the ellipse, pixels, in single precision. Points with a residual of
/// 2.92 times that or more are dropped; the others keep their order. -1 when it is above 1 pixel (the fit has failed)
/// or the list is empty, 0 when it is below the precision of a float: no point is dropped then.
double trimOutliers(const Ellipse<double>& ellipse, std::vector<cv::Point2f>& points);

}  // namespace kestrune::morvenkit
