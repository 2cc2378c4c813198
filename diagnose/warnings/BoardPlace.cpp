#include "diagnose/warnings/BoardPlace.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <opencv2/calib3d.hpp>

#include "diagnose/warnings/Thresholds.h"
#include "platform/Median.h"

namespace diagnose {
namespace {

constexpr std::size_t kLeastDots = 8;
/// More dots than these only take time: six numbers are sought.
constexpr std::size_t kEnoughDots = 160;

using Sights = std::vector<BoardSight>;

/// Distance to the nearest other dot, median over some dots.
double pitchOf(const Sights& sights) {
  std::vector<double> nearest;
  const std::size_t every = std::max<std::size_t>(1, sights.size() / 60);
  for (std::size_t k = 0; k < sights.size(); k += every) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t other = 0; other < sights.size(); ++other) {
      if (other != k) least = std::min(least, cv::norm(sights[other].pixel - sights[k].pixel));
    }
    nearest.push_back(least);
  }
  return rank::median(std::move(nearest));
}

double errorAt(const CalibratedCamera& camera, const CameraPose& pose, const BoardSight& sight) {
  const auto pixel = camera.pixelOf(pose.toCamera(sight.board));
  return pixel ? cv::norm(*pixel - sight.pixel) : std::numeric_limits<double>::infinity();
}

/// The nearest turn to a matrix whose columns are images of the board's axes.
CameraPose poseOfHomography(cv::Matx33d H) {
  if (H(2, 2) < 0.0) H *= -1.0;  // The board's origin is in front of the camera.
  const cv::Vec3d a(H(0, 0), H(1, 0), H(2, 0));
  const cv::Vec3d b(H(0, 1), H(1, 1), H(2, 1));
  const double scale = 2.0 / (cv::norm(a) + cv::norm(b));
  const cv::Vec3d x = a * scale;
  const cv::Vec3d y = b * scale;
  const cv::Vec3d z = x.cross(y);
  const cv::Matx33d axes(x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2]);
  const cv::SVD svd(cv::Mat(axes), cv::SVD::FULL_UV);
  const cv::Mat turn = svd.u * svd.vt;
  return {cv::Matx33d(turn), cv::Vec3d(H(0, 2), H(1, 2), H(2, 2)) * scale};
}

/// A first pose, the dots that agreed on it, and what share of all they are.
struct Start {
  CameraPose pose;
  Sights agreeing;
  double share = 0.0;
};

std::optional<Start> startOf(const CalibratedCamera& camera, const Sights& sights, double pitch) {
  std::vector<cv::Point2d> board;
  std::vector<cv::Point2d> ideal;
  Sights seen;
  for (const BoardSight& sight : sights) {
    const auto point = camera.idealOf(sight.pixel);
    if (!point) continue;
    board.emplace_back(sight.board.x, sight.board.y);
    ideal.push_back(*point);
    seen.push_back(sight);
  }
  if (board.size() < kLeastDots) return std::nullopt;
  cv::Mat agrees;
  const double tolerance = thresholds::kOwnPlace * pitch / camera.focal().x;
  const cv::Mat H = cv::findHomography(board, ideal, cv::RANSAC, tolerance, agrees);
  if (H.empty()) return std::nullopt;
  Start start{poseOfHomography(cv::Matx33d(H)), {}, 0.0};
  for (std::size_t k = 0; k < seen.size(); ++k) {
    if (agrees.at<uchar>(static_cast<int>(k)) != 0) start.agreeing.push_back(seen[k]);
  }
  start.share = static_cast<double>(start.agreeing.size()) / static_cast<double>(sights.size());
  return start;
}

/// By least squares in the picture, if that is to be had.
CameraPose refined(const CalibratedCamera& camera, const CameraPose& start, const Sights& sights) {
  std::vector<PosePoint> points;
  points.reserve(sights.size());
  for (const BoardSight& sight : sights) points.push_back({sight.board, sight.pixel});
  const auto fitted = fitPose(camera, start, points);
  return fitted ? fitted->pose : start;
}

/// Root mean square of the errors below a bound; not a number without any.
double rmsBelow(const std::vector<double>& errors, double bound) {
  double sum = 0.0;
  double count = 0.0;
  for (const double error : errors) {
    if (!(error < bound)) continue;
    sum += error * error;
    count += 1.0;
  }
  return std::sqrt(sum / count);
}

}  // namespace

std::vector<BoardSight> someOf(const std::vector<BoardSight>& sights, std::size_t most) {
  const std::size_t every = std::max<std::size_t>(1, (sights.size() + most - 1) / most);
  std::vector<BoardSight> some;
  for (std::size_t k = 0; k < sights.size(); k += every) some.push_back(sights[k]);
  return some;
}

std::optional<BoardPlace> placeBoard(const CalibratedCamera& camera, const std::vector<BoardSight>& sights) {
  if (sights.size() < kLeastDots) return std::nullopt;
  BoardPlace place;
  place.pitch = pitchOf(sights);
  const auto start = startOf(camera, someOf(sights, kEnoughDots), place.pitch);
  if (!start) return std::nullopt;
  const CameraPose pose = refined(camera, start->pose, start->agreeing);
  place.R = pose.R;
  place.T = pose.T;
  place.on_grid = start->share;
  for (const BoardSight& sight : sights) place.errors.push_back(errorAt(camera, pose, sight));
  const double tolerance = thresholds::kOwnPlace * place.pitch;
  const auto fitting = std::ranges::count_if(place.errors, [&](double error) { return error < tolerance; });
  place.fitting = static_cast<double>(fitting) / static_cast<double>(sights.size());
  const bool most_fit = place.fitting >= thresholds::kFittingShare;
  place.rms = rmsBelow(place.errors, most_fit ? tolerance : std::numeric_limits<double>::infinity());
  return place;
}

}  // namespace diagnose
