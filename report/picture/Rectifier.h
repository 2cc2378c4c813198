#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <optional>

#include "report/measure/KnownCameras.h"
#include "report/read/Json.h"

namespace polarline {

/// Makes the rectified pictures of a check once more, by the steps of its run.
class Rectifier {
 public:
  Rectifier(const Json& document, const std::optional<KnownCameras>& cameras);

  /// The run looked at pictures that it rectified itself, besides those that it was given.
  bool hasRun() const { return has_run_; }

  struct Pictures {
    cv::Mat left, right;
  };
  /// Of the pair at a place of the document; none where the cameras are not known. The pictures are cropped, if that
  /// was asked for.
  std::optional<Pictures> of(std::size_t place, const cv::Mat& left, const cv::Mat& right) const;

 private:
  bool has_run_;
  std::optional<KnownCameras> cameras_;
  float f_scale_;
  int x_y_;
  cv::Point corner_;  ///< Of the crop.
};

}  // namespace polarline
