#include "camera/PointUndistortion.h"

#include <opencv2/calib3d.hpp>

#include "camera/UndistortPointsPoly.h"

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
