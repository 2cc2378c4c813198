#include "camera/RectificationMaps.h"

#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>

#include "camera/PolyRectifyMap.h"

namespace {

struct Lens {
  const cv::Mat& K;
  const cv::Mat& D;
  const PinholeCameraIntrinsicsPOL& camera;
};

bool isBrown(LensModel model) { return model == LensModel::kBrownFive || model == LensModel::kBrownEight; }

PointUndistortion undistortionOf(const Lens& lens, LensModel model) {
  if (model == LensModel::kFisheye) return fisheyeUndistortion(lens.D);
  if (model == LensModel::kPoly) return polyUndistortion(lens.camera);
  return brownUndistortion(lens.D);
}

Rectification unscaledPair(const StereoMatrices& cameras, const cv::Size& size) {
  constexpr double kDefaultScaling = -1.0;
  Rectification pair;
  cv::stereoRectify(cameras.K1, cameras.D1, cameras.K2, cameras.D2, size, cameras.R, cameras.T, pair.R1, pair.R2,
                    pair.P1, pair.P2, pair.Q, cv::CALIB_ZERO_DISPARITY, kDefaultScaling);
  return pair;
}

Rectification scaledPair(const Lens& left, const Lens& right, const StereoMatrices& cameras, const cv::Size& size,
                         float f_scale, LensModel model) {
  const RectificationRequest request{cv::CALIB_ZERO_DISPARITY, cv::Size(0, 0), 0.0, static_cast<double>(f_scale)};
  Rectification pair;
  StereoRectifyScaled({left.K, undistortionOf(left, model)}, {right.K, undistortionOf(right, model)}, size, cameras.R,
                      cameras.T, request, pair);
  return pair;
}

WarpMaps warpMaps(const Lens& lens, const cv::Mat& R, const cv::Mat& P, const cv::Size& size, LensModel model) {
  WarpMaps maps;
  if (model == LensModel::kFisheye) {
    cv::fisheye::initUndistortRectifyMap(lens.K, lens.D, R, P, size, CV_32FC1, maps.columns, maps.rows);
  } else if (model == LensModel::kPoly) {
    InitPolyRectifyMap(lens.K, lens.camera, R, P, size, CV_32FC1, maps.columns, maps.rows);
  } else {
    cv::initUndistortRectifyMap(lens.K, lens.D, R, P, size, CV_32FC1, maps.columns, maps.rows);
  }
  return maps;
}

Lens leftLens(const RectificationSettings& settings, const StereoMatrices& cameras) {
  return {cameras.K1, cameras.D1, settings.left_camera};
}

Lens rightLens(const RectificationSettings& settings, const StereoMatrices& cameras) {
  return {cameras.K2, cameras.D2, settings.right_camera};
}

}  // namespace

Rectification virtualPair(const RectificationSettings& settings, const StereoMatrices& cameras, const cv::Size& size,
                          LensModel model) {
  // The comparison is exact: the scale next to 1 chooses another kind of virtual camera.
  if (isBrown(model) && settings.f_scale == 1.0F) return unscaledPair(cameras, size);
  return scaledPair(leftLens(settings, cameras), rightLens(settings, cameras), cameras, size, settings.f_scale, model);
}

RectificationMaps rectificationMaps(const RectificationSettings& settings, const StereoMatrices& cameras,
                                    const cv::Size& size, LensModel model) {
  const Rectification pair = virtualPair(settings, cameras, size, model);
  return {warpMaps(leftLens(settings, cameras), pair.R1, pair.P1, size, model),
          warpMaps(rightLens(settings, cameras), pair.R2, pair.P2, size, model), pair.Q};
}
