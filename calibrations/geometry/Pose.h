#pragma once

#include <opencv2/core.hpp>

namespace calibrations {

/// A rigid motion from one frame to another: X' = R X + T.
struct Pose {
  cv::Matx33d R = cv::Matx33d::eye();
  cv::Vec3d T;
};

inline Pose inverse(const Pose& pose) { return {pose.R.t(), -(pose.R.t() * pose.T)}; }

/// `first`, then `second`.
inline Pose operator*(const Pose& second, const Pose& first) {
  return {second.R * first.R, second.R * first.T + second.T};
}

}  // namespace calibrations
