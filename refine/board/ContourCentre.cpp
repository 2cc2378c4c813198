#include "refine/board/ContourCentre.h"

#include <array>
#include <cmath>
#include <opencv2/core/hal/hal.hpp>

#include "refine/board/BoardSlope.h"
#include "refine/outline/Directions.h"
#include "refine/outline/Outline.h"

namespace refine {
namespace {

constexpr std::size_t kPoints = 12;
constexpr int kRounds = 3;
constexpr double kSettledShift = 1e-9;  ///< Pixels.

using Contour = std::array<cv::Point2d, kPoints>;
using Matx55 = cv::Matx<double, 5, 5>;
using Vec5 = cv::Vec<double, 5>;

std::optional<Contour> contourOf(const CalibratedCamera& camera, const CameraPose& pose, const cv::Point3d& board,
                                 double radius) {
  static const auto kAround = directionsAround<kPoints>();
  Contour contour;
  for (std::size_t k = 0; k < kPoints; ++k) {
    const auto pixel = camera.pixelOf(pose.toCamera(board + radius * cv::Point3d(kAround[k][0], kAround[k][1], 0.0)));
    if (!pixel) return std::nullopt;
    contour[k] = *pixel;
  }
  return contour;
}

/// One step towards the outline nearest to the contour; the length of the centre's move.
std::optional<double> stepTowards(const Contour& contour, Outline& outline) {
  Matx55 normal = Matx55::zeros();
  Vec5 right = Vec5::all(0.0);
  for (std::size_t k = 0; k < kPoints; ++k) {
    const cv::Point2d point = contour[k];
    const double length = cv::norm(contour[(k + 1) % kPoints] - contour[(k + kPoints - 1) % kPoints]);
    const EdgePlace place = edgePlace(outline, point.x, point.y);
    const double by_shape = 0.5 / place.reach;
    const Vec5 slope(place.nx, place.ny, by_shape * place.nx * place.nx, by_shape * 2.0 * place.nx * place.ny,
                     by_shape * place.ny * place.ny);
    normal += length * slope * slope.t();
    right += length * place.outside() * slope;
  }
  Vec5& move = right;
  if (!cv::hal::Cholesky64f(normal.val, 5 * sizeof(double), 5, move.val, sizeof(double), 1)) return std::nullopt;
  outline.centre += cv::Point2d(move[0], move[1]);
  outline.xx += move[2];
  outline.xy += move[3];
  outline.yy += move[4];
  if (!outline.isEllipse()) return std::nullopt;
  return std::hypot(move[0], move[1]);
}

}  // namespace

std::optional<cv::Point2d> contourBias(const CalibratedCamera& camera, const CameraPose& pose, const cv::Point3d& board,
                                       double radius) {
  const auto centre = camera.pixelOf(pose.toCamera(board));
  const auto contour = contourOf(camera, pose, board, radius);
  const auto slope = slopeOnBoard(camera, pose, board, radius);
  if (!centre || !contour || !slope) return std::nullopt;
  Outline outline = outlineOfCircle(*centre, *slope, radius);
  if (!outline.isEllipse()) return std::nullopt;
  for (int round = 0; round < kRounds; ++round) {
    const auto length = stepTowards(*contour, outline);
    if (!length) return std::nullopt;
    if (*length < kSettledShift) break;
  }
  return outline.centre - *centre;
}

}  // namespace refine
