#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/CalibratedCamera.h"
#include "camera/PoseFit.h"

namespace diagnose {

/// A dot of the board and where a picture has it.
struct BoardSight {
  std::int32_t id = 0;
  cv::Point3d board;  ///< Board unit.
  cv::Point2d pixel;
};

/// Every so many, `most` at most: spread over the board as their ids run along its rows.
std::vector<BoardSight> someOf(const std::vector<BoardSight>& sights, std::size_t most);

/// Where the board stands before a camera, X_camera = R X_board + T, and how well it meets the picture through the
/// lens.
struct BoardPlace {
  cv::Matx33d R;
  cv::Vec3d T;
  std::vector<double> errors;  ///< Of each sight, pixels; infinite behind the camera.
  double pitch = 0.0;          ///< Way to the next dot, pixels, median.
  double on_grid = 0.0;        ///< Share of the dots that stand on one grid, however that is stretched.
  double fitting = 0.0;        ///< Share of those that are nearer to their own place than to a neighbour's.
  double rms = 0.0;            ///< Of these, or where most are not, of all; pixels.
};

/// Fits the pose: the homography from the board to the ideal image plane as a start (Zhang 2000), then least squares
/// in the picture through the lens (`fitPose`), over the dots that agree. None where too few dots do, or
/// the lens does not see them.
std::optional<BoardPlace> placeBoard(const CalibratedCamera& camera, const std::vector<BoardSight>& sights);

}  // namespace diagnose
