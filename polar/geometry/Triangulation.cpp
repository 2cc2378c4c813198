#include "polar/geometry/Triangulation.h"

#include <Eigen/Dense>
#include <limits>
#include <opencv2/core/eigen.hpp>

#include "platform/Console.h"

namespace {

using Projection = Eigen::Matrix<double, 3, 4>;

Eigen::Matrix3d matrixOf(const cv::Mat& matrix) {
  Eigen::Matrix3d result;
  cv::cv2eigen(matrix, result);
  return result;
}

cv::Point2d widened(const cv::Point2f& point) { return {point.x, point.y}; }

/// Every value between the steps of the triangulation is held in single precision.
cv::Point2f narrowed(const cv::Point2d& point) { return {static_cast<float>(point.x), static_cast<float>(point.y)}; }

cv::Point3f narrowed(const Eigen::Vector3d& point) {
  return {static_cast<float>(point.x()), static_cast<float>(point.y()), static_cast<float>(point.z())};
}

cv::Point2f normalisedOf(const cv::Point2f& pixel, const cv::Mat& K) {
  return narrowed(cv::Point2d((pixel.x - K.at<double>(0, 2)) / K.at<double>(0, 0),
                              (pixel.y - K.at<double>(1, 2)) / K.at<double>(1, 1)));
}

cv::Point2f pixelOf(const cv::Point2d& normalised, const cv::Mat& K) {
  return narrowed(cv::Point2d(normalised.x * K.at<double>(0, 0) + K.at<double>(0, 2),
                              normalised.y * K.at<double>(1, 1) + K.at<double>(1, 2)));
}

/// A run of an unknown distortion model has no camera matrices: that must end as an error, not as a read of nothing.
void requireMatrix(const cv::Mat& matrix, int columns) {
  CV_CheckTypeEQ(matrix.type(), CV_64FC1, "an evaluation needs matrices of doubles");
  CV_CheckEQ(matrix.rows, 3, "an evaluation needs matrices of three rows");
  CV_CheckEQ(matrix.cols, columns, "an evaluation needs matrices of full width");
}

void requireCameras(const EvaluationCameras& cameras) {
  requireMatrix(cameras.left_K, 3);
  requireMatrix(cameras.right_K, 3);
  requireMatrix(cameras.R, 3);
  requireMatrix(cameras.T, 1);
}

struct UndistortedPair {
  cv::Point2f pixel_left;
  cv::Point2f pixel_right;
  bool left_done = true;
  bool right_done = true;
};

UndistortedPair undistortPair(const cv::Point2f& pixel_left, const cv::Point2f& pixel_right,
                              const EvaluationCameras& cameras, const CameraPairModel& model) {
  UndistortedPair pair;
  cv::Point2d ideal_left;
  cv::Point2d ideal_right;
  pair.left_done = model.undistortLeft(widened(normalisedOf(pixel_left, cameras.left_K)), ideal_left);
  pair.right_done = model.undistortRight(widened(normalisedOf(pixel_right, cameras.right_K)), ideal_right);
  pair.pixel_left = pixelOf(widened(narrowed(ideal_left)), cameras.left_K);
  pair.pixel_right = pixelOf(widened(narrowed(ideal_right)), cameras.right_K);
  return pair;
}

/// Both lines name the left point, also the one of a failure on the right.
void reportFailures(const UndistortedPair& pair, const cv::Point2f& pixel_left, std::vector<cv::Point3f>& result) {
  const auto report = [&](const char* label) {
    console::line(label, pixel_left.x, " ", pixel_left.y);
    result.insert(result.end(), 2, cv::Point3f(0.0F, 0.0F, 0.0F));
  };
  if (!pair.left_done) report("irl_err: ");
  if (!pair.right_done) report("irr_err: ");
}

/// The point of the left frame that both undistorted pixels see. Its components are narrowed before the division, its
/// fourth is not. An undistortion that ran away leaves equations without finite numbers: the point is NaN then, as the
/// decomposition would leave its matrices unset.
Eigen::Vector3d linearPoint(const UndistortedPair& pair, const Projection& left, const Projection& right) {
  Eigen::Matrix4d equations;
  equations.row(0) = pair.pixel_left.x * left.row(2) - left.row(0);
  equations.row(1) = pair.pixel_left.y * left.row(2) - left.row(1);
  equations.row(2) = pair.pixel_right.x * right.row(2) - right.row(0);
  equations.row(3) = pair.pixel_right.y * right.row(2) - right.row(1);
  if (!equations.allFinite()) return Eigen::Vector3d::Constant(std::numeric_limits<double>::quiet_NaN());
  const Eigen::JacobiSVD<Eigen::Matrix4d> decomposition(equations, Eigen::ComputeFullU | Eigen::ComputeFullV);
  const Eigen::Vector4d homogeneous = decomposition.matrixV().col(3);
  Eigen::Vector3d point;
  for (int k = 0; k < 3; ++k) point[k] = static_cast<double>(static_cast<float>(homogeneous[k])) / homogeneous[3];
  return point;
}

}  // namespace

std::vector<cv::Point3f> TriangulatePair(const cv::Point2f& pixel_left, const cv::Point2f& pixel_right,
                                         const EvaluationCameras& cameras, const CameraPairModel& model) {
  requireCameras(cameras);
  std::vector<cv::Point3f> result;
  const UndistortedPair pair = undistortPair(pixel_left, pixel_right, cameras, model);
  if (model.marksFailures()) reportFailures(pair, pixel_left, result);

  const Eigen::Matrix3d R = matrixOf(cameras.R);
  const Eigen::Vector3d T(cameras.T.at<double>(0), cameras.T.at<double>(1), cameras.T.at<double>(2));
  Projection origin = Projection::Zero();
  origin.leftCols<3>().setIdentity();
  Projection right_from_left;
  right_from_left << R, T;
  const Projection left = matrixOf(cameras.left_K) * origin;
  const Projection right = matrixOf(cameras.right_K) * right_from_left;

  const Eigen::Vector3d point_left = linearPoint(pair, left, right);
  const Eigen::Vector3d point_right = R * point_left + T;
  result.push_back(narrowed(point_left));
  result.push_back(narrowed(point_right));
  return result;
}

cv::Point2f predictRightPixel(const cv::Point3f& point_right, const cv::Mat& right_K, const CameraPairModel& model) {
  if (model.marksFailures() && point_right == cv::Point3f(0.0F, 0.0F, 0.0F)) return {0.0F, 0.0F};
  const cv::Point2f ideal(point_right.x / point_right.z, point_right.y / point_right.z);
  return pixelOf(model.distortRight(widened(ideal)), right_K);
}

cv::Point2f predictLeftPixel(const cv::Point3f& point_left, const cv::Mat& left_K, const CameraPairModel& model) {
  const cv::Point2f ideal(point_left.x / point_left.z, point_left.y / point_left.z);
  return pixelOf(model.distortLeft(widened(ideal)), left_K);
}
