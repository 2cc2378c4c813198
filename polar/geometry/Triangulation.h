#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polar/geometry/CameraPairModel.h"

/// Linear triangulation of one pair of raw pixels (Hartley and Zisserman 2003, 12.2): the point in the left camera
/// frame, then in the right one. A model that marks failures puts two zero points in front when an undistortion fails,
/// so that a reader of the first two gets zeros. Throws `cv::Exception` when a matrix is missing.
std::vector<cv::Point3f> TriangulatePair(const cv::Point2f& pixel_left, const cv::Point2f& pixel_right,
                                         const EvaluationCameras& cameras, const CameraPairModel& model);

/// The raw pixel at which the right camera should see a point of its own frame. With a model that marks failures the
/// zero point gives the zero pixel.
cv::Point2f predictRightPixel(const cv::Point3f& point_right, const cv::Mat& right_K, const CameraPairModel& model);

/// The raw pixel at which the left camera should see a point of its own frame; the zero point has no rule of its own
/// here.
cv::Point2f predictLeftPixel(const cv::Point3f& point_left, const cv::Mat& left_K, const CameraPairModel& model);
