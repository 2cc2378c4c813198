#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/CalibratedCamera.h"

namespace refine {

/// Where a board stands before a camera: X_camera = R X_board + T.
struct BoardPose {
  cv::Matx33d R = cv::Matx33d::eye();
  cv::Vec3d T;

  cv::Vec3d toCamera(const cv::Point3d& board) const { return R * cv::Vec3d(board.x, board.y, board.z) + T; }
};

/// A point of the board and where it was seen.
struct SeenPoint {
  cv::Point3d board;
  cv::Point2d pixel;
  double weight = 1.0;  ///< Inverse variance, by square pixels.
};

/// What a pose leaves.
struct FittedPose {
  BoardPose pose;
  double rms = 0.0;  ///< Of all points that count, pixels.
};

/// A first pose, from the points as an ideal camera would see them (OpenCV's `solvePnP`). None with fewer than six
/// points, all on a line, or behind the camera.
std::optional<BoardPose> firstPose(const CalibratedCamera& camera, const std::vector<SeenPoint>& points);

/// The pose with the least weighted sum of squared distances in the picture, through the whole lens, by Gauss and
/// Newton. Points farther off than four times the median distance do not count.
std::optional<FittedPose> fitPose(const CalibratedCamera& camera, const BoardPose& start,
                                  const std::vector<SeenPoint>& points);

/// Slope of the picture by the board's own x and y at a point of it, pixels by board units; none where it isn't seen.
std::optional<cv::Matx22d> slopeOnBoard(const CalibratedCamera& camera, const BoardPose& pose, const cv::Point3d& board,
                                        double step);

}  // namespace refine
