#include "camera/PoseFit.h"

#include <cmath>
#include <opencv2/calib3d.hpp>

#include "platform/Median.h"

namespace {

constexpr std::size_t kFewest = 6;
constexpr int kPoseSteps = 20;
constexpr double kPoseSettled = 1e-10;
constexpr double kFarOff = 4.0;
constexpr double kLeastOff = 1e-6;  ///< Pixels.

using Matx26 = cv::Matx<double, 2, 6>;
using Vec6 = cv::Vec<double, 6>;

/// Slope of the pixel by the point of the camera frame, by differences over a small angle.
std::optional<cv::Matx23d> slopeInCamera(const CalibratedCamera& camera, const cv::Vec3d& point) {
  const double step = 1e-5 * cv::norm(point);
  cv::Matx23d slope;
  for (int axis = 0; axis < 3; ++axis) {
    cv::Vec3d more = point, less = point;
    more[axis] += step;
    less[axis] -= step;
    const auto ahead = camera.pixelOf(more), behind = camera.pixelOf(less);
    if (!ahead || !behind) return std::nullopt;
    slope(0, axis) = (ahead->x - behind->x) / (2.0 * step);
    slope(1, axis) = (ahead->y - behind->y) / (2.0 * step);
  }
  return slope;
}

/// Distances of the points from where the pose images them; not a number where it does not.
void measureErrors(const CalibratedCamera& camera, const CameraPose& pose, const std::vector<PosePoint>& points,
                   std::vector<cv::Vec2d>& errors) {
  for (std::size_t k = 0; k < points.size(); ++k) {
    const auto pixel = camera.pixelOf(pose.toCamera(points[k].board));
    errors[k] =
        pixel ? cv::Vec2d(points[k].pixel.x - pixel->x, points[k].pixel.y - pixel->y) : cv::Vec2d::all(std::nan(""));
  }
}

/// Distance beyond which a point does not count.
double limitOf(const std::vector<cv::Vec2d>& errors, std::vector<double>& lengths) {
  lengths.clear();
  for (const cv::Vec2d& error : errors) {
    const double length = cv::norm(error);
    if (std::isfinite(length)) lengths.push_back(length);
  }
  if (lengths.empty()) return 0.0;
  return kFarOff * rank::upperMedian(lengths) + kLeastOff;
}

struct PoseSums {
  cv::Matx66d normal = cv::Matx66d::zeros();
  Vec6 right = Vec6::all(0.0);

  void add(const Matx26& slope, const cv::Vec2d& error, double weight) {
    const cv::Matx<double, 6, 2> weighted = slope.t() * weight;
    normal += weighted * slope;
    right += weighted * error;
  }
};

/// By a turn of the camera frame about the board's origin and by the translation.
Matx26 slopeByPose(const cv::Matx23d& slope, const cv::Vec3d& turned) {
  const cv::Matx33d cross(0, turned[2], -turned[1], -turned[2], 0, turned[0], turned[1], -turned[0], 0);
  const cv::Matx23d by_turn = slope * cross;
  Matx26 result;
  for (int row = 0; row < 2; ++row) {
    for (int axis = 0; axis < 3; ++axis) {
      result(row, axis) = by_turn(row, axis);
      result(row, axis + 3) = slope(row, axis);
    }
  }
  return result;
}

cv::Matx33d turnedBy(const cv::Vec3d& turn) {
  cv::Matx33d R;
  cv::Rodrigues(turn, R);
  return R;
}

}  // namespace

std::optional<CameraPose> firstPose(const CalibratedCamera& camera, const std::vector<PosePoint>& points) {
  std::vector<cv::Point3d> board;
  std::vector<cv::Point2d> ideal;
  for (const PosePoint& point : points) {
    const auto seen = camera.idealOf(point.pixel);
    if (!seen) continue;
    board.push_back(point.board);
    ideal.push_back(*seen);
  }
  if (board.size() < kFewest) return std::nullopt;
  cv::Vec3d turn, T;
  try {
    if (!cv::solvePnP(board, ideal, cv::Matx33d::eye(), cv::noArray(), turn, T)) return std::nullopt;
  } catch (const cv::Exception&) {  // Points on a line have no pose.
    return std::nullopt;
  }
  const CameraPose pose{turnedBy(turn), T};
  for (const cv::Point3d& point : board) {
    if (!(pose.toCamera(point)[2] > 0.0)) return std::nullopt;
  }
  return pose;
}

std::optional<FittedPose> fitPose(const CalibratedCamera& camera, const CameraPose& start,
                                  const std::vector<PosePoint>& points) {
  if (points.size() < kFewest) return std::nullopt;
  FittedPose fitted{start};
  std::vector<cv::Vec2d> errors(points.size());
  std::vector<double> lengths;
  lengths.reserve(points.size());
  for (int step = 0; step < kPoseSteps; ++step) {
    measureErrors(camera, fitted.pose, points, errors);
    const double limit = limitOf(errors, lengths);
    PoseSums sums;
    double squares = 0.0, count = 0.0;
    for (std::size_t k = 0; k < points.size(); ++k) {
      if (!(cv::norm(errors[k]) <= limit)) continue;
      const cv::Vec3d at = fitted.pose.toCamera(points[k].board);
      const auto slope = slopeInCamera(camera, at);
      if (!slope) continue;
      sums.add(slopeByPose(*slope, at - fitted.pose.T), errors[k], points[k].weight);
      squares += errors[k].dot(errors[k]);
      count += 1.0;
    }
    if (count < static_cast<double>(kFewest)) return std::nullopt;
    fitted.rms = std::sqrt(squares / count);
    Vec6 move;
    if (!cv::solve(sums.normal, sums.right, move, cv::DECOMP_CHOLESKY)) return std::nullopt;
    const cv::Vec3d turn(move[0], move[1], move[2]), shift(move[3], move[4], move[5]);
    fitted.pose.R = turnedBy(turn) * fitted.pose.R;
    fitted.pose.T += shift;
    if (cv::norm(turn) + cv::norm(shift) / cv::norm(fitted.pose.T) < kPoseSettled) break;
  }
  return fitted;
}
