#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>

#include "camera/LensModel.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "camera/RectifiedPictures.h"

// Values of `x_y`.
inline constexpr std::int32_t kRowsAsTheyAre = 0;
inline constexpr std::int32_t kQuarterTurn = 1;

/// What the rectification needs of a run besides images and matrices.
struct RectificationSettings {
  float f_scale = 1.0F;  ///< Exactly 1 selects OpenCV's own rectification for the Brown models.
  std::int32_t x_y = 0;  ///< 0 rows as they are, 1 turned a quarter clockwise; any other value: no layout.
  const PinholeCameraIntrinsicsPOL& left_camera;
  const PinholeCameraIntrinsicsPOL& right_camera;
};

/// The two calibrated cameras: matrices, distortion rows, and X_right = R X_left + T.
struct StereoMatrices {
  cv::Mat K1, D1, K2, D2, R, T;
};

/// A pair as one virtual pinhole camera sees it, 8-bit colour, both images of one size.
struct RectifiedPair {
  cv::Mat left;
  cv::Mat right;

  /// Both side by side with lines every 32 rows. Drawn when it is asked for: most runs save no pictures.
  cv::Mat canvas() const { return polarLineCanvas(left, right); }
};

class KeptMaps;

/// Warps a pair into one virtual pinhole camera, by the maps that are kept. `Q` gets the 4x4 reprojection matrix.
/// Without a model `Q` stays as it was and the pair unwarped. One- and four-channel and 16-bit images become 8-bit
/// colour; images of another type or of different sizes raise a `cv::Exception` where a layout is asked for. None for
/// an `x_y` that asks for no layout. Prints the virtual camera unless `Q` is empty.
std::optional<RectifiedPair> RectifyPair(const RectificationSettings& settings, const StereoMatrices& cameras,
                                         const cv::Mat& left_image, const cv::Mat& right_image,
                                         std::optional<LensModel> model, KeptMaps& maps, cv::Mat& Q);
