#pragma once

#include <opencv2/core.hpp>

#include "camera/BrownModel.h"
#include "camera/CameraFloats.h"
#include "camera/CameraIntrinsicsBase.h"

/// Camera matrices and extrinsics that an evaluation works with: X_right = R X_left + T.
struct EvaluationCameras {
  cv::Mat left_K;
  cv::Mat right_K;
  cv::Mat R;
  cv::Mat T;
};

/// The lens models of both cameras of a pair, on normalised points. What differs between Brown and polynomial
/// evaluations beyond the formula is told by `marksFailures`.
class CameraPairModel {
 public:
  CameraPairModel() = default;
  CameraPairModel(const CameraPairModel&) = delete;
  CameraPairModel& operator=(const CameraPairModel&) = delete;
  virtual ~CameraPairModel() = default;

  /// Raw to ideal; false when the iteration fails, `ideal` then holds what the model leaves there.
  virtual bool undistortLeft(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const = 0;
  virtual bool undistortRight(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const = 0;
  /// Ideal to raw.
  virtual cv::Point2d distortLeft(const cv::Point2d& normalised_ideal) const = 0;
  virtual cv::Point2d distortRight(const cv::Point2d& normalised_ideal) const = 0;
  /// Whether a failed undistortion is reported and gives zero points, and a zero point predicts the zero pixel.
  virtual bool marksFailures() const = 0;
};

/// Brown coefficients of both cameras.
class BrownPairModel final : public CameraPairModel {
 public:
  BrownPairModel(const CameraFloats& left_camera, const CameraFloats& right_camera);
  bool undistortLeft(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const override;
  bool undistortRight(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const override;
  cv::Point2d distortLeft(const cv::Point2d& normalised_ideal) const override;
  cv::Point2d distortRight(const cv::Point2d& normalised_ideal) const override;
  bool marksFailures() const override { return false; }

 private:
  BrownCoefficients left_;
  BrownCoefficients right_;
};

/// Camera objects of both sides. They must outlive the model.
class ObjectPairModel final : public CameraPairModel {
 public:
  ObjectPairModel(const CameraIntrinsicsBase& left_camera, const CameraIntrinsicsBase& right_camera)
      : left_(left_camera), right_(right_camera) {}
  bool undistortLeft(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const override;
  bool undistortRight(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const override;
  cv::Point2d distortLeft(const cv::Point2d& normalised_ideal) const override;
  cv::Point2d distortRight(const cv::Point2d& normalised_ideal) const override;
  bool marksFailures() const override { return true; }

 private:
  const CameraIntrinsicsBase& left_;
  const CameraIntrinsicsBase& right_;
};
