#include "camera/RectificationMaps.h"

#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>

#include "camera/PolyRectifyMap.h"
#include "camera/StereoRectifyScaled.h"

namespace {

constexpr std::int32_t kBrownEight = 1;
constexpr std::int32_t kFisheye = 2;
constexpr std::int32_t kPoly = 3;

struct Lens {
  const cv::Mat& K;
  const cv::Mat& D;
  const PinholeCameraIntrinsicsPOL& camera;
};

PointUndistortion undistortionOf(const Lens& lens, std::int32_t type) {
  if (type == kFisheye) return fisheyeUndistortion(lens.D);
  if (type == kPoly) return polyUndistortion(lens.camera);
  return brownUndistortion(lens.D);
}

Rectification unscaledPair(const StereoMatrices& cameras, const cv::Size& size) {
  constexpr double kKeepFocalLength = -1.0;
  Rectification pair;
  cv::stereoRectify(cameras.K1, cameras.D1, cameras.K2, cameras.D2, size, cameras.R, cameras.T, pair.R1, pair.R2,
                    pair.P1, pair.P2, pair.Q, cv::CALIB_ZERO_DISPARITY, kKeepFocalLength);
  return pair;
}

Rectification scaledPair(const Lens& left, const Lens& right, const StereoMatrices& cameras, const cv::Size& size,
                         float f_scale, std::int32_t type) {
  const RectificationRequest request{cv::CALIB_ZERO_DISPARITY, cv::Size(0, 0), 0.0, static_cast<double>(f_scale)};
  Rectification pair;
  StereoRectifyScaled({left.K, undistortionOf(left, type)}, {right.K, undistortionOf(right, type)}, size, cameras.R,
                      cameras.T, request, pair);
  return pair;
}

WarpMaps warpMaps(const Lens& lens, const cv::Mat& R, const cv::Mat& P, const cv::Size& size, std::int32_t type) {
  WarpMaps maps;
  if (type == kFisheye) {
    cv::fisheye::initUndistortRectifyMap(lens.K, lens.D, R, P, size, CV_32FC1, maps.columns, maps.rows);
  } else if (type == kPoly) {
    InitPolyRectifyMap(lens.K, lens.camera, R, P, size, CV_32FC1, maps.columns, maps.rows);
  } else {
    cv::initUndistortRectifyMap(lens.K, lens.D, R, P, size, CV_32FC1, maps.columns, maps.rows);
  }
  return maps;
}

}  // namespace

bool hasRectification(std::int32_t type) { return type >= 0 && type <= kPoly; }

RectificationMaps rectificationMaps(const RectificationSettings& settings, const StereoMatrices& cameras,
                                    const cv::Size& size, std::int32_t type) {
  const Lens left{cameras.K1, cameras.D1, settings.left_camera};
  const Lens right{cameras.K2, cameras.D2, settings.right_camera};
  // The comparison is exact: the scale next to 1 chooses another kind of virtual camera.
  const bool unscaled = type <= kBrownEight && settings.f_scale == 1.0F;
  const Rectification pair =
      unscaled ? unscaledPair(cameras, size) : scaledPair(left, right, cameras, size, settings.f_scale, type);
  return {warpMaps(left, pair.R1, pair.P1, size, type), warpMaps(right, pair.R2, pair.P2, size, type), pair.Q};
}
