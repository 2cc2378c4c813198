#pragma once

#include <Eigen/Core>
#include <opencv2/core.hpp>
#include <vector>

#include "polar/results/PairObservation.h"

/// How a triangulated point and its residual follow the four pixel coordinates of a dot: left x, y, right x, y, to
/// first order. The slope is the pseudo-inverse of how the pixels follow the point, as least squares give it (Hartley
/// and Zisserman 2003, 5.2). That the library triangulates linearly changes no more of it than the depths of the point
/// in both cameras differ. Lenses are left out: their slope differs from 1 by a few per cent at the edge of a picture,
/// more behind wide ones, and so does what follows.
struct TriangulationSlope {
  Eigen::Matrix<double, 3, 4> position = Eigen::Matrix<double, 3, 4>::Zero();  ///< Board unit a pixel.
  Eigen::Vector4d residual = Eigen::Vector4d::Zero();       ///< Of the signed residual in the right picture.
  Eigen::Vector2d residual_axis = Eigen::Vector2d::Zero();  ///< Its positive direction in the right picture, unit.
};

/// At a point of the left camera's frame. Zero where a camera does not see the point.
TriangulationSlope slopeAt(const cv::Point3f& point_left, const SeenCameras& cameras);

/// Of a cloud's point by the matrix Q, which has no residual: the derivative of the quotient itself.
TriangulationSlope slopeAt(const SharedDot& rectified, const cv::Matx44d& Q);

/// The point itself, in double precision.
Eigen::Vector3d cloudPoint(const SharedDot& rectified, const cv::Matx44d& Q);

/// Slope of a pinhole's pixel along its camera's axes, the derivative of K X / Z: two rows.
Eigen::Matrix<double, 2, 3> pixelSlope(const cv::Matx33d& K, const Eigen::Vector3d& point);
