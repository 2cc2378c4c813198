#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/CalibratedCamera.h"
#include "polarline/refine.h"

/// A numbered dot as a detection left it.
struct DotPlace {
  std::int32_t id = 0;
  cv::Point2d pixel;                 ///< Its approximate centre.
  std::optional<cv::Point3d> board;  ///< Where it is on the board, board unit; none: no pose is fitted to it.
};

/// Where the board stands before one camera: X_camera = R X_board + T.
struct RefinedPose {
  cv::Matx33d R;
  cv::Vec3d T;       ///< Board unit.
  double rms = 0.0;  ///< Of the refined centres against the board's image through the lens, pixels.
};

struct RefinedPicture {
  std::vector<polarline::RefinedDot> dots;  ///< One a place, in the order of the places.
  std::optional<RefinedPose> pose;          ///< None with fewer than six dots on the board; the perspective then stays.
};

/// Refines the dots of one picture: 8 or 16 bit a channel, grey or colour. Deterministic, thread-safe.
RefinedPicture refineDots(const cv::Mat& picture, const std::vector<DotPlace>& places, const CalibratedCamera& camera);
