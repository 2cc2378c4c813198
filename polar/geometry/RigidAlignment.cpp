#include "polar/geometry/RigidAlignment.h"

#include <Eigen/Dense>
#include <cmath>
#include <limits>
#include <opencv2/calib3d.hpp>
#include <opencv2/core/eigen.hpp>
#include <stdexcept>

#include "platform/Console.h"

namespace {

/// R and t of target = R source + t, doubles.
struct Motion {
  cv::Mat R;
  cv::Mat t;
};

/// Single precision, as the figures require.
cv::Point3f centroidOf(const std::vector<cv::Point3f>& points) {
  cv::Point3f sum(0.0F, 0.0F, 0.0F);
  for (const cv::Point3f& point : points) sum += point;
  const auto count = static_cast<float>(points.size());
  return {sum.x / count, sum.y / count, sum.z / count};
}

Eigen::Vector3d widened(const cv::Point3f& point) { return {point.x, point.y, point.z}; }

/// The determinant is not looked at: points that are mirrored against each other give a reflection, which is meant.
/// With a NaN among the points there is no rotation: the decomposition would leave its matrices unset.
Eigen::Matrix3d rotationOf(const Eigen::Matrix3d& covariance) {
  if (!covariance.allFinite()) return Eigen::Matrix3d::Constant(std::numeric_limits<double>::quiet_NaN());
  const Eigen::JacobiSVD<Eigen::Matrix3d> decomposition(covariance, Eigen::ComputeFullU | Eigen::ComputeFullV);
  return decomposition.matrixU() * decomposition.matrixV().transpose();
}

Motion fitMotion(const std::vector<cv::Point3f>& source, const std::vector<cv::Point3f>& target) {
  const cv::Point3f source_centre = centroidOf(source);
  const cv::Point3f target_centre = centroidOf(target);
  Eigen::Matrix3d covariance = Eigen::Matrix3d::Zero();
  for (std::size_t i = 0; i < source.size(); ++i) {
    covariance += widened(target[i] - target_centre) * widened(source[i] - source_centre).transpose();
  }
  const Eigen::Matrix3d R = rotationOf(covariance);
  const Eigen::Vector3d t = widened(target_centre) - R * widened(source_centre);
  Motion motion;
  cv::eigen2cv(R, motion.R);
  cv::eigen2cv(t, motion.t);
  return motion;
}

void printRotation(const cv::Mat& R) {
  cv::Mat rvec;
  cv::Rodrigues(R, rvec);
  const auto degrees = [&rvec](int k) { return static_cast<float>(rvec.at<double>(k) * 180.0 / CV_PI); };
  console::line("icp_rx:", degrees(0));
  console::line("icp_ry:", degrees(1));
  console::line("icp_rz:", degrees(2));
}

cv::Point3f movedBy(const Motion& motion, const cv::Point3f& point) {
  const cv::Mat position = (cv::Mat_<double>(3, 1) << point.x, point.y, point.z);
  const cv::Mat moved = motion.R * position + motion.t;
  return {static_cast<float>(moved.at<double>(0)), static_cast<float>(moved.at<double>(1)),
          static_cast<float>(moved.at<double>(2))};
}

std::array<float, 4> residualRms(const std::vector<cv::Point3f>& aligned, const std::vector<cv::Point3f>& target) {
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;
  float total = 0.0F;
  for (std::size_t i = 0; i < aligned.size(); ++i) {
    const cv::Point3f d = aligned[i] - target[i];
    x += d.x * d.x;
    y += d.y * d.y;
    z += d.z * d.z;
    total += d.x * d.x + d.y * d.y + d.z * d.z;
  }
  const auto count = static_cast<float>(aligned.size());
  return {std::sqrt(x / count), std::sqrt(y / count), std::sqrt(z / count), std::sqrt(total / count)};
}

}  // namespace

std::array<float, 4>& AlignRigid(std::array<float, 4>& rms, const std::vector<cv::Point3f>& source,
                                 const std::vector<cv::Point3f>& target, std::vector<cv::Point3f>& aligned) {
  if (source.empty() || source.size() != target.size()) {
    throw std::invalid_argument("Point sets must be non-empty and of the same size.");
  }
  const Motion motion = fitMotion(source, target);
  printRotation(motion.R);
  aligned.clear();
  aligned.reserve(source.size());
  for (const cv::Point3f& point : source) aligned.push_back(movedBy(motion, point));
  rms = residualRms(aligned, target);
  console::line("icp_x_rms:   ", rms[0]);
  console::line("icp_y_rms:   ", rms[1]);
  console::line("icp_z_rms:   ", rms[2]);
  console::line("icp_nor_rms: ", rms[3]);
  return rms;
}
