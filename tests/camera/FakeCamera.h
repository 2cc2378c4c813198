#pragma once

#include "camera/PinholeCameraIntrinsics.h"

/// A lens that moves every point by (0.25, 0.5), and counts how often its inverse is asked for.
class FakeCamera : public PinholeCameraIntrinsics {
 public:
  bool LoadCalib(StereoCalibParams, int) override { return false; }
  bool AddDistortion(const cv::Point2d& ideal, cv::Point2d& raw) const override {
    raw = ideal + cv::Point2d(0.25, 0.5);
    return true;
  }
  bool RemoveDistortion(const cv::Point2d& raw, cv::Point2d& ideal) const override {
    ++asked;
    ideal = raw - cv::Point2d(0.25, 0.5);
    return true;
  }
  mutable int asked = 0;
};
