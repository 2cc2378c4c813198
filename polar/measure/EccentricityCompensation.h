#pragma once

#include <opencv2/core.hpp>
#include <vector>

/// Centre of an imaged circle from its edge points. A circle on a tilted board is seen as an ellipse whose centre is
/// not the image of the circle's centre; so the edge is turned to a view parallel to the board, the centre fitted there
/// and turned back. `K` is the camera's 3x3 matrix, `R` the board's rotation against the camera; lens distortion stays
/// in. Fewer than 5 edge points give the image of the turned view's origin.
cv::Point2f compensatedCentre(const std::vector<cv::Point2f>& edge_pixels, const cv::Matx33d& K, const cv::Matx33d& R);
