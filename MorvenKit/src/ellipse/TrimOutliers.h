#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/Ellipse.h"

namespace kestrune::morvenkit {

/// Distance, pixels, of the point (x, y), given in the ellipse's own frame, from the nearer of the two places where the
/// line through it and the centre meets the ellipse of semi-axes a and b. Single precision throughout.
float radialResidual(float x, float y, float a, float b);

/// Root mean square residual of the points about the ellipse, pixels, in single precision. Points that stand out (2.92
/// times the root mean square or more) are dropped, the order of the others stays. Above 1 pixel the fit has failed: -1
/// and the points stay; the same for an empty list. Below the precision of a float: 0 and the points stay.
double trimOutliers(const Ellipse<double>& ellipse, std::vector<cv::Point2f>& points);

}  // namespace kestrune::morvenkit
