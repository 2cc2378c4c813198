#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "camera/CalibratedPair.h"
#include "diagnose/causes/Misalignment.h"
#include "diagnose/causes/RowFrames.h"
#include "polarline/diagnose.h"

/// The misalignment that causes tell together. A name that no cause has is passed over.
Misalignment misalignmentOf(const std::vector<polarline::Cause>& causes);

/// The row differences, left less right, that a misalignment makes in pictures rectified by a calibration that does not
/// know of it: what would be gone with the misalignment taken out. In the model of the causes.
class RowPattern {
 public:
  RowPattern(const StereoCalibParams& calib, LensModel model, double f_scale, const Misalignment& misalignment);

  /// Of a dot by its pixels of the whole pictures, in pixels of the rectified ones; not a number where a lens does not
  /// see it.
  double at(const cv::Point2d& left, const cv::Point2d& right) const;

 private:
  /// A calibration and the rectified frames that belong to it.
  struct Rows {
    CalibratedPair cameras;
    RowFrames frames;

    Rows(const StereoCalibParams& calib, LensModel model);
    double at(const cv::Point2d& left, const cv::Point2d& right) const;
  };
  double focal_;
  Rows believed_, true_;
};
