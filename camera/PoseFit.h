#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/CalibratedCamera.h"

/// Where a board stands before a camera: X_camera = R X_board + T.
struct CameraPose {
  cv::Matx33d R = cv::Matx33d::eye();
  cv::Vec3d T;

  cv::Vec3d toCamera(const cv::Point3d& board) const { return R * cv::Vec3d(board.x, board.y, board.z) + T; }
};

/// A point of the board and where it was seen.
struct PosePoint {
  cv::Point3d board;
  cv::Point2d pixel;
  double weight = 1.0;  ///< Inverse variance, by square pixels.
};

/// What a pose leaves.
struct FittedPose {
  CameraPose pose;
  double rms = 0.0;  ///< Of all points that count, pixels.
};

/// A first pose, from the points as an ideal camera would see them (OpenCV's `solvePnP`). None with fewer than six
/// points, all on a line, or behind the camera.
std::optional<CameraPose> firstPose(const CalibratedCamera& camera, const std::vector<PosePoint>& points);

/// The pose with the least weighted sum of squared distances in the picture, through the whole lens, by Gauss and
/// Newton. Points farther off than four times the median distance do not count.
std::optional<FittedPose> fitPose(const CalibratedCamera& camera, const CameraPose& start,
                                  const std::vector<PosePoint>& points);
