#include "polar/measure/BoardPose.h"

#include <opencv2/calib3d.hpp>

#include "platform/Console.h"
#include "polar/measure/DetectionMemory.h"

namespace {

const cv::Point3d& boardPosition(const kestrune::RingTarget& target, std::int32_t id) {
  return target.boardModel().at(static_cast<std::size_t>(id)).position;
}

struct Correspondences {
  std::vector<cv::Point3f> points_board;
  std::vector<cv::Point2f> pixels;
};

Correspondences correspondencesOf(const kestrune::RingTarget& target, const kestrune::RingTarget::Points& points) {
  Correspondences pairs;
  for (const auto& point : points) {
    // The measurement has ended already with so few points; whoever else asks is told.
    if (points.size() < kLeastDetected) console::out() << "eccentricity err!";
    const cv::Point3d& position = boardPosition(target, point.id);
    pairs.points_board.emplace_back(static_cast<float>(position.x), static_cast<float>(position.y),
                                    static_cast<float>(position.z));
    pairs.pixels.emplace_back(static_cast<float>(point.x), static_cast<float>(point.y));
  }
  return pairs;
}

}  // namespace

BoardPose estimateBoardPose(const kestrune::RingTarget& target, const kestrune::RingTarget::Points& points,
                            const PoseCamera& camera) {
  const Correspondences pairs = correspondencesOf(target, points);
  cv::Mat rvec;
  cv::Mat tvec;
  cv::solvePnP(pairs.points_board, pairs.pixels, camera.K, camera.coefficients, rvec, tvec, false,
               cv::SOLVEPNP_ITERATIVE);
  BoardPose pose;
  for (int k = 0; k < 3; ++k) {
    pose.report.at(static_cast<std::size_t>(k)) = static_cast<float>(rvec.at<double>(k) * 180.0 / CV_PI);
  }
  cv::Rodrigues(rvec, pose.R);
  const cv::Point3d& centre = boardPosition(target, target.centreIndex());
  const cv::Vec3d centre_camera = pose.R * cv::Vec3d(centre.x, centre.y, centre.z) +
                                  cv::Vec3d(tvec.at<double>(0), tvec.at<double>(1), tvec.at<double>(2));
  pose.report[3] = static_cast<float>(cv::norm(centre_camera));
  return pose;
}
