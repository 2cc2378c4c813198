#include "camera/PointUndistortion.h"

#include <opencv2/calib3d.hpp>

#include "camera/RotationMatrix.h"

namespace {

cv::Point2d rotated(const cv::Matx33d& rotation, const cv::Point2d& normalised) {
  const cv::Vec3d ray = rotation * cv::Vec3d(normalised.x, normalised.y, 1.0);
  return {ray[0] / ray[2], ray[1] / ray[2]};
}

}  // namespace

PointUndistortion brownUndistortion(const cv::Mat& D) {
  return [D](const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K, const cv::Mat& rotation) {
    cv::undistortPoints(pixels, normalised, K, D, rotation);
  };
}

PointUndistortion fisheyeUndistortion(const cv::Mat& D) {
  return [D](const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K, const cv::Mat& rotation) {
    cv::fisheye::undistortPoints(pixels, normalised, K, D, rotation);
  };
}

PointUndistortion polyUndistortion(const CameraIntrinsicsBase& camera) {
  return [&camera](const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K, const cv::Mat& rotation) {
    UndistortPointsPoly(pixels, normalised, K, camera, rotation);
  };
}

void UndistortPointsPoly(const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K,
                         const CameraIntrinsicsBase& camera, const cv::Mat& rotation) {
  CV_CheckType(pixels.type(), pixels.type() == CV_32FC2 || pixels.type() == CV_64FC2, "points are pairs");
  const cv::Matx33d k(K);
  const cv::Matx33d R = rotationMatrixOf(rotation);
  cv::Mat_<cv::Point2d> points;
  pixels.convertTo(points, CV_64F);
  for (cv::Point2d& point : points) {
    point = {(point.x - k(0, 2)) / k(0, 0), (point.y - k(1, 2)) / k(1, 1)};
    // Meant: the virtual centre of a polynomial pair is found from the points as the lens left them. Its focal length
    // and the maps hang on that centre, so the answer must not be used.
    cv::Point2d unused;
    static_cast<void>(camera.RemoveDistortion(point, unused));
    point = rotated(R, point);
  }
  points.convertTo(normalised, pixels.depth());
}
