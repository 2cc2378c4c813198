#include "report/picture/Rectifier.h"

#include <sstream>

#include "camera/CameraFloats.h"
#include "camera/CameraMatrices.h"
#include "camera/KeptMaps.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "camera/RectifyPair.h"
#include "platform/Console.h"
#include "report/measure/Crop.h"
#include "report/read/Settings.h"

namespace polarline {
namespace {

/// In single precision, as a run has them.
StereoMatrices matricesOf(const KnownCameras& cameras) {
  const auto of = [&](const CameraCalib& calib) {
    return BuildCameraMatrices(cameras.model, cameraFloatsOf(calib, cameras.model));
  };
  const CameraMatrices left = of(cameras.calib.left);
  const CameraMatrices right = of(cameras.calib.right);
  const auto narrow = [&](std::size_t k) { return static_cast<float>(cameras.calib.extrinsics.at(k)); };
  return {left.K,
          left.D,
          right.K,
          right.D,
          EulerToRotation({narrow(0), narrow(1), narrow(2)}),
          (cv::Mat_<double>(3, 1) << narrow(3), narrow(4), narrow(5))};
}

void movePrincipalPoint(cv::Mat& K, const cv::Point2d& by) {
  K.at<double>(0, 2) -= by.x;
  K.at<double>(1, 2) -= by.y;
}

PinholeCameraIntrinsicsPOL polynomialCamera(const KnownCameras& cameras, int index) {
  PinholeCameraIntrinsicsPOL camera;
  if (cameras.model == LensModel::kPoly) camera.LoadCalib(cameras.calib, index);
  return camera;
}

}  // namespace

Rectifier::Rectifier(const Json& document, const std::optional<KnownCameras>& cameras)
    : has_run_(document["cameras"]["model"] != "rectified" && settingOf(document, "frame_work") == 0.0),
      cameras_(cameras),
      f_scale_(static_cast<float>(settingOf(document, "f_scale", 1.0))),
      x_y_(settingOf(document, "x_y") == 0.0 ? kRowsAsTheyAre : kQuarterTurn),
      corner_(partLookedAt(document).tl()) {}

std::optional<Rectifier::Pictures> Rectifier::of(std::size_t place, const cv::Mat& left, const cv::Mat& right) const {
  if (!has_run_ || !cameras_ || left.empty() || left.size() != right.size()) return std::nullopt;
  StereoMatrices matrices = matricesOf(*cameras_);
  // A run moves the principal point with each pair that it crops.
  const cv::Point2d by = cv::Point2d(corner_) * static_cast<double>(place + 1);
  movePrincipalPoint(matrices.K1, by);
  movePrincipalPoint(matrices.K2, by);
  const PinholeCameraIntrinsicsPOL left_camera = polynomialCamera(*cameras_, 0);
  const PinholeCameraIntrinsicsPOL right_camera = polynomialCamera(*cameras_, 1);
  std::ostringstream unread;
  const console::Redirection quiet(unread, unread);
  KeptMaps maps;
  cv::Mat Q;
  const auto pair =
      RectifyPair({f_scale_, x_y_, left_camera, right_camera}, matrices, left, right, cameras_->model, maps, Q);
  return pair ? std::optional(Pictures{pair->left, pair->right}) : std::nullopt;
}

}  // namespace polarline
