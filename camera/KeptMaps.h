#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <optional>

#include "camera/RectificationMaps.h"

/// The maps of a run's pairs, made anew only where a pair's matrices, size or settings are others than those of the
/// pair before: the crop of a run, which shifts the matrices with each pair, makes them anew each time.
class KeptMaps {
 public:
  /// As `rectificationMaps`. The camera objects of the settings stay as they are while the maps are kept. What is given
  /// back is good until the next call.
  const RectificationMaps& of(const RectificationSettings& settings, const StereoMatrices& cameras,
                              const cv::Size& size, LensModel model);

  /// How often maps were made.
  std::size_t made() const { return made_; }

 private:
  struct Key {
    float f_scale = 0.0F;
    LensModel model = LensModel::kBrownFive;
    cv::Size size;
    StereoMatrices cameras;  ///< Copies: a run changes its matrices where they are.
  };
  static bool equal(const Key& a, const Key& b);

  std::optional<Key> key_;  ///< Of the maps; none before and behind a failure.
  RectificationMaps maps_;
  std::size_t made_ = 0;
};
