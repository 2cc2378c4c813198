#pragma once

#include <array>
#include <opencv2/calib3d.hpp>

#include "tools/scene/Board.h"
#include "tools/scene/Pose.h"

/// What the pose report should say of a board: rotation vector in degrees, then the distance of its middle dot.
inline std::array<double, 4> truePose(const scene::Pose& camera_from_board, const scene::Board& board) {
  cv::Vec3d rvec;
  cv::Rodrigues(cv::Matx33d(camera_from_board.rotation.values.data()), rvec);
  rvec *= 180.0 / CV_PI;
  const scene::Point3 middle{(board.cols - 1) / 2 * board.step, (board.rows - 1) / 2 * scene::rowStep(board), 0.0};
  return {rvec[0], rvec[1], rvec[2], scene::norm(scene::transformed(camera_from_board, middle))};
}
