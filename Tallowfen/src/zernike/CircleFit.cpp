#include "Tallowfen/src/zernike/CircleFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <opencv2/imgproc.hpp>
#include <utility>

namespace kestrune {

namespace {

using Points = std::vector<cv::Point2f>;

// Pixels between neighbouring points; a wider gap is a part of the outline that was not found.
constexpr double kWidestGap = 5.0;
// Pixels: larger than any dot, and too small for one. Both axes must be beyond.
constexpr float kTooLargeAxis = 320.0F;
constexpr float kTooSmallAxis = 10.0F;
// Width over height; flatter ones are dots seen nearly from the side, or none.
constexpr double kLeastAxisRatio = 0.4;
// Of 4 pi area / perimeter^2. The upper one is beyond any plane outline.
constexpr float kLeastCircleRoundness = 0.4F;
constexpr float kGreatestRoundness = 1.05F;
// Area over that of the convex hull; less has a dent.
constexpr float kLeastConvexity = 0.85F;
// So far above it that no rounding of the areas matters.
constexpr double kSurelyConvex = 0.86;
// Without a unit: the points are far from the ellipse as a whole.
constexpr double kLargestMisfit = 2.0;
constexpr double kFourPi = 4 * CV_PI;

// Meant: the way from the last point back to the first is left out.
bool hasGap(const Points& points) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (cv::norm(points[i] - points[i - 1]) > kWidestGap) return true;
  }
  return false;
}

// 4 pi area / perimeter^2 of the outline where it is that of a dot.
std::optional<double> dotRoundness(const Points& points, double area) {
  const double perimeter = cv::arcLength(points, true);
  if (perimeter == 0) return std::nullopt;
  const double roundness = area * kFourPi / (perimeter * perimeter);
  if (!(roundness >= static_cast<double>(kLeastCircleRoundness) &&
        roundness <= static_cast<double>(kGreatestRoundness))) {
    return std::nullopt;
  }
  return roundness;
}

// Whether the outline fills enough of its convex hull. Where an ellipse around all points is hardly larger than the
// outline, neither is the hull, which lies between the two: it need not be formed then.
bool isConvex(const Points& points, double area, double area_around) {
  if (area > kSurelyConvex * area_around) return true;
  Points hull;
  cv::convexHull(points, hull, false, true);
  const double hull_area = cv::contourArea(hull);
  if (hull_area == 0) return false;
  return area / hull_area >= static_cast<double>(kLeastConvexity);
}

Ellipse recordOf(const cv::RotatedRect& fit, double roundness, Points edge_points) {
  Ellipse ellipse;
  ellipse.x = fit.center.x;
  ellipse.y = fit.center.y;
  ellipse.semi_a = static_cast<double>(std::max(fit.size.width, fit.size.height)) / 2;
  ellipse.semi_b = static_cast<double>(std::min(fit.size.width, fit.size.height)) / 2;
  ellipse.angle = (static_cast<double>(fit.angle) - 90) * CV_PI / 180;
  ellipse.sigma = 0;
  ellipse.edge_points = std::move(edge_points);
  ellipse.roundness = roundness;
  return ellipse;
}

bool isFinite(const cv::RotatedRect& fit) {
  return std::isfinite(fit.center.x) && std::isfinite(fit.center.y) && std::isfinite(fit.size.width) &&
         std::isfinite(fit.size.height) && std::isfinite(fit.angle);
}

}  // namespace

bool hasDotSize(const cv::Size2f& size) {
  if (size.width > kTooLargeAxis && size.height > kTooLargeAxis) return false;
  if (size.width < kTooSmallAxis && size.height < kTooSmallAxis) return false;
  const float ratio = size.width / size.height;
  return !(ratio < kLeastAxisRatio);
}

Misfit algebraicMisfit(const std::vector<cv::Point2f>& points, const cv::RotatedRect& ellipse) {
  const double theta = -static_cast<double>(ellipse.angle) * CV_PI / 180;
  const double c = std::cos(theta);
  const double s = std::sin(theta);
  const double w = ellipse.size.width;
  const double h = ellipse.size.height;
  double sum = 0, farthest = 0;
  for (const cv::Point2f& point : points) {
    const cv::Point2f offset = point - ellipse.center;
    const double x = c * offset.x - s * offset.y;
    const double y = c * offset.y + s * offset.x;
    const double error = std::abs(y * y / (w * w / 4) + x * x / (h * h / 4) - 1);
    sum += error * error;
    farthest = std::max(farthest, error);
  }
  const double residual = std::sqrt(sum / static_cast<double>(points.size()));
  if (!std::isfinite(residual)) return {residual, std::numeric_limits<double>::infinity()};
  return {residual, (1 + farthest) * CV_PI * w * h / 4};
}

std::optional<Ellipse> fitCircle(std::vector<cv::Point2f> edge_points) {
  const cv::RotatedRect fit = cv::fitEllipseDirect(edge_points);
  return dotOfFit(fit, std::move(edge_points));
}

std::optional<Ellipse> dotOfFit(const cv::RotatedRect& fit, std::vector<cv::Point2f> edge_points) {
  // NaN would pass the limits below, as it exceeds none of them.
  if (!isFinite(fit)) return std::nullopt;
  if (hasGap(edge_points) || !hasDotSize(fit.size)) return std::nullopt;
  const double area = cv::contourArea(edge_points);
  const std::optional<double> roundness = dotRoundness(edge_points, area);
  if (!roundness) return std::nullopt;
  const Misfit misfit = algebraicMisfit(edge_points, fit);
  if (misfit.residual > kLargestMisfit || !isConvex(edge_points, area, misfit.area_around)) return std::nullopt;
  return recordOf(fit, *roundness, std::move(edge_points));
}

}  // namespace kestrune
