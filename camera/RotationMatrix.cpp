#include "camera/RotationMatrix.h"

#include <opencv2/calib3d.hpp>

namespace {

bool isMatrix(const cv::Mat& rotation) { return rotation.size() == cv::Size(3, 3) && rotation.channels() == 1; }

}  // namespace

cv::Vec3d vectorOf(const cv::Mat& vector) {
  CV_CheckEQ(vector.total() * static_cast<std::size_t>(vector.channels()), std::size_t{3}, "a vector of three numbers");
  const cv::Matx31d column(vector.reshape(1, 3));
  return {column(0), column(1), column(2)};
}

cv::Vec3d rotationVectorOf(const cv::Mat& rotation) {
  if (!isMatrix(rotation)) return vectorOf(rotation);
  cv::Vec3d vector;
  cv::Rodrigues(cv::Matx33d(rotation), vector);
  return vector;
}

cv::Matx33d rotationMatrixOf(const cv::Mat& rotation) {
  if (rotation.empty()) return cv::Matx33d::eye();
  if (isMatrix(rotation)) return {rotation};
  cv::Matx33d matrix;
  cv::Rodrigues(vectorOf(rotation), matrix);
  return matrix;
}
