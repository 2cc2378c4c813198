#include "check/init/BaselineCheck.h"

#include <opencv2/calib3d.hpp>
#include <optional>

#include "diagnose/warnings/ShownBaseline.h"

namespace init {
namespace {

using polarline::Camera;

/// With fewer the pose is too rough to say anything.
constexpr std::size_t kLeastDots = 20;
constexpr int kFisheye = 2;

std::vector<cv::Point2d> normalised(const Camera& camera, int type, const std::vector<cv::Point2d>& pixels) {
  const cv::Matx33d K(camera.fx, 0, camera.cx, 0, camera.fy, camera.cy, 0, 0, 1);
  const auto& k = camera.k;
  std::vector<cv::Point2d> points;
  if (type == kFisheye)
    cv::fisheye::undistortPoints(pixels, points, K, cv::Vec4d(k[0], k[1], k[2], k[3]));
  else
    cv::undistortPoints(pixels, points, K,
                        cv::Vec<double, 8>(k[0], k[1], camera.p1, camera.p2, k[2], k[3], k[4], k[5]));
  return points;
}

std::optional<diagnose::SeenPose> boardPose(const Camera& camera, int type,
                                            const std::vector<polarline::BoardPoint>& board, const SeenBoard& seen) {
  std::vector<cv::Point3d> places;
  std::vector<cv::Point2d> pixels;
  for (const auto& [id, pixel] : seen.dots) {
    if (id < 0 || static_cast<std::size_t>(id) >= board.size()) continue;
    const polarline::BoardPoint& point = board[static_cast<std::size_t>(id)];
    places.emplace_back(point.x, point.y, point.z);
    pixels.push_back(pixel);
  }
  if (places.size() < kLeastDots) return std::nullopt;
  cv::Vec3d turn;
  diagnose::SeenPose pose;
  if (!cv::solvePnP(places, normalised(camera, type, pixels), cv::Matx33d::eye(), cv::noArray(), turn, pose.T))
    return std::nullopt;
  cv::Rodrigues(turn, pose.R);
  return pose;
}

}  // namespace

std::vector<polarline::Warning> judgeBaseline(const polarline::Calibration& calibration,
                                              const polarline::BoardDescription& board, const SeenBoard& left,
                                              const SeenBoard& right) {
  const std::vector<polarline::BoardPoint> points = polarline::boardPoints(board);
  const auto a = boardPose(calibration.left, calibration.type, points, left);
  const auto b = boardPose(calibration.right, calibration.type, points, right);
  if (!a || !b) return {};
  const cv::Vec3d told(calibration.tx, calibration.ty, calibration.tz);
  const cv::Vec3d shown = diagnose::shownBaseline(*a, *b);
  const auto found = diagnose::judgeBaseline(shown, told, 0);
  return found ? std::vector{*found} : std::vector<polarline::Warning>();
}

}  // namespace init
