#include "check/init/StepCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "camera/LensModel.h"
#include "check/init/SeenCameras.h"
#include "check/init/Warnings.h"
#include "diagnose/warnings/Scale.h"
#include "diagnose/warnings/ShownBaseline.h"
#include "diagnose/warnings/Thresholds.h"
#include "platform/PlainNumber.h"

namespace init {
namespace {

using polarline::BoardDescription;

/// With fewer no direction is sure.
constexpr std::size_t kLeastPlaced = 20;

/// Dots where they stand and where they were described.
struct Placed {
  std::vector<cv::Vec3d> seen;       ///< Left camera.
  std::vector<cv::Vec2d> described;  ///< On the board.
};

/// How much farther apart dots stand than they were described.
struct Stretch {
  double along_row = 1.0;
  double down_column = 1.0;
  double row_error = 0.0;  ///< Standard errors.
  double column_error = 0.0;
};

Placed placedDots(const CalibratedPair& cameras, const BoardDescription& board, const SeenBoard& left,
                  const SeenBoard& right) {
  const std::vector<polarline::BoardPoint> places = polarline::boardPoints(board);
  Placed placed;
  for (const auto& [id, pixel] : left.dots) {
    const auto partner = right.dots.find(id);
    if (partner == right.dots.end() || id < 0 || static_cast<std::size_t>(id) >= places.size()) continue;
    const auto point = diagnose::triangulated(cameras, pixel, partner->second);
    if (!point) continue;
    placed.seen.push_back(*point);
    placed.described.emplace_back(places[static_cast<std::size_t>(id)].x, places[static_cast<std::size_t>(id)].y);
  }
  return placed;
}

template <typename Point>
Point meanOf(const std::vector<Point>& points) {
  Point sum;
  for (const Point& point : points) sum += point;
  return sum * (1.0 / static_cast<double>(points.size()));
}

/// The affine map of the board's plane that fits best. Lengths of neighbours' ways themselves would come out too long,
/// as each error of the depth lengthens them.
std::optional<Stretch> stretchOf(const Placed& dots) {
  if (dots.seen.size() < kLeastPlaced) return std::nullopt;
  const cv::Vec3d middle = meanOf(dots.seen);
  const cv::Vec2d described_middle = meanOf(dots.described);
  cv::Matx<double, 3, 2> mixed = cv::Matx<double, 3, 2>::zeros();
  cv::Matx22d square = cv::Matx22d::zeros();
  for (std::size_t k = 0; k < dots.seen.size(); ++k) {
    const cv::Vec2d described = dots.described[k] - described_middle;
    mixed += (dots.seen[k] - middle) * described.t();
    square += described * described.t();
  }
  if (!(cv::determinant(square) > 0.0)) return std::nullopt;
  const cv::Matx22d inverse = square.inv();
  const cv::Matx<double, 3, 2> map = mixed * inverse;
  double left_over = 0.0;
  for (std::size_t k = 0; k < dots.seen.size(); ++k) {
    const cv::Vec3d off = dots.seen[k] - middle - map * (dots.described[k] - described_middle);
    left_over += off.dot(off);
  }
  const double variance = left_over / (3.0 * static_cast<double>(dots.seen.size()) - 9.0);
  return Stretch{cv::norm(map.col(0)), cv::norm(map.col(1)), std::sqrt(variance * inverse(0, 0)),
                 std::sqrt(variance * inverse(1, 1))};
}

bool isOff(double ratio, double error) {
  const double off = std::abs(ratio - 1.0);
  return off > diagnose::thresholds::kScale && off > diagnose::thresholds::kScaleSure * error;
}

/// One direction is described wrong and the other is not. A turned camera stretches both, and of a tilted board the one
/// that leads away from it by another share: by half of that at 45 degrees, which is less than this asks for.
bool isUneven(const Stretch& stretch) {
  constexpr double kOneSided = 0.75;
  const double ratio = stretch.along_row / stretch.down_column;
  const double most = std::max(std::abs(stretch.along_row - 1.0), std::abs(stretch.down_column - 1.0));
  return isOff(ratio, std::hypot(stretch.row_error, stretch.column_error)) && std::abs(ratio - 1.0) > kOneSided * most;
}

/// The scale of the board by where its two poses put the cameras.
std::optional<double> scaleByPoses(const CalibratedPair& cameras, const BoardDescription& board, const SeenBoard& left,
                                   const SeenBoard& right) {
  const auto a = boardPose(cameras.left, board, left);
  const auto b = boardPose(cameras.right, board, right);
  if (!a || !b) return std::nullopt;
  return cv::norm(cameras.T) / cv::norm(diagnose::shownBaseline(*a, *b));
}

std::string stepText(const BoardDescription& board, const Stretch& stretch) {
  const double step_y = board.step_y == 0.0 ? board.step : board.step_y;
  return fmt::format(
      "By the calibration the dots of the first pair stand {} apart along a row and {} down a column, and the board is "
      "described with {} and {} (standard errors {} and {} %)",
      plain::rounded(board.step * stretch.along_row, 4), plain::rounded(step_y * stretch.down_column, 4),
      plain::rounded(board.step, 6), plain::rounded(step_y, 6), plain::rounded(100.0 * stretch.row_error, 1),
      plain::rounded(100.0 * stretch.column_error, 1));
}

}  // namespace

std::vector<polarline::Warning> judgeStep(const polarline::Calibration& calibration, const BoardDescription& board,
                                          const SeenBoard& left, const SeenBoard& right) {
  if (lensModelOf(calibration.type) == LensModel::kPoly) return {};
  const CalibratedPair cameras = camerasOf(calibration);
  const auto stretch = stretchOf(placedDots(cameras, board, left, right));
  if (!stretch) return {};
  const bool is_uneven = isUneven(*stretch);
  const bool is_scaled =
      isOff(stretch->along_row, stretch->row_error) && isOff(stretch->down_column, stretch->column_error);
  if (!is_uneven && !is_scaled) return {};
  if (!is_uneven) {
    const double scale = 0.5 * (stretch->along_row + stretch->down_column);
    const auto by_poses = scaleByPoses(cameras, board, left, right);
    const bool agrees =
        by_poses && std::abs(*by_poses - scale) < diagnose::thresholds::kScaleAgrees * std::abs(scale - 1.0);
    if (!agrees) return {};
  }
  return {warning("board_step", stepText(board, *stretch), 0)};
}

}  // namespace init
