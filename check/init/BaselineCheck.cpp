#include "check/init/BaselineCheck.h"

#include <fmt/format.h>

#include <cmath>
#include <opencv2/calib3d.hpp>
#include <optional>

#include "check/init/Warnings.h"

namespace init {
namespace {

using polarline::Camera;

/// With fewer the pose is too rough to say anything.
constexpr std::size_t kLeastDots = 20;
/// Pictures tell the baseline to some tenths of it at worst; units differ by tens.
constexpr double kSameLength = 1.5;
/// Cosine below which two directions are opposite.
constexpr double kOpposite = -0.5;
constexpr int kFisheye = 2;

/// X_camera = R X_board + t.
struct BoardPlace {
  cv::Matx33d R;
  cv::Vec3d t;
};

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

std::optional<BoardPlace> boardPlace(const Camera& camera, int type, const std::vector<polarline::BoardPoint>& board,
                                     const SeenBoard& seen) {
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
  BoardPlace place;
  if (!cv::solvePnP(places, normalised(camera, type, pixels), cv::Matx33d::eye(), cv::noArray(), turn, place.t))
    return std::nullopt;
  cv::Rodrigues(turn, place.R);
  return place;
}

}  // namespace

std::vector<polarline::Warning> judgeBaseline(const polarline::Calibration& calibration,
                                              const polarline::BoardDescription& board, const SeenBoard& left,
                                              const SeenBoard& right) {
  const std::vector<polarline::BoardPoint> points = polarline::boardPoints(board);
  const auto a = boardPlace(calibration.left, calibration.type, points, left);
  const auto b = boardPlace(calibration.right, calibration.type, points, right);
  if (!a || !b) return {};
  const cv::Vec3d told(calibration.tx, calibration.ty, calibration.tz);
  const cv::Vec3d shown = b->t - b->R * a->R.t() * a->t;
  const double ratio = cv::norm(shown) / cv::norm(told);
  if (!(ratio < kSameLength && ratio > 1.0 / kSameLength))
    return {
        warning("baseline_unit",
                fmt::format("The calibration puts the cameras {:.4g} apart, but the first pair shows them about {:.4g} "
                            "board units apart, {:.3g} times as far",
                            cv::norm(told), cv::norm(shown), ratio),
                0)};
  if (shown.dot(told) / (cv::norm(shown) * cv::norm(told)) < kOpposite)
    return {warning("sides_exchanged",
                    "The first pair shows the right camera on the other side of the left one than the calibration does",
                    0)};
  return {};
}

}  // namespace init
