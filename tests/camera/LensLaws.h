#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <opencv2/core.hpp>
#include <vector>

/// What a lens that is distorted and undistorted again leaves over a dense grid.
struct RoundTrip {
  double worst = 0.0;                   ///< Largest sum of the absolute errors among the points that came back.
  double worst_residual = 0.0;          ///< The same between the raw points and those distorted once more.
  std::vector<cv::Point2d> far;         ///< Points that came back off by more than the tolerance.
  std::vector<cv::Point2d> never_back;  ///< Points whose inverse failed.
};

using PointMap = std::function<bool(const cv::Point2d&, cv::Point2d&)>;

/// `count` points a side over the rectangle, its borders included.
inline RoundTrip roundTrip(const PointMap& distort, const PointMap& undistort, const cv::Rect2d& area, int count,
                           double tolerance) {
  RoundTrip result;
  for (int row = 0; row < count; ++row) {
    for (int column = 0; column < count; ++column) {
      const cv::Point2d ideal(area.x + area.width * column / (count - 1), area.y + area.height * row / (count - 1));
      cv::Point2d raw;
      cv::Point2d back;
      if (!distort(ideal, raw) || !undistort(raw, back)) {
        result.never_back.push_back(ideal);
        continue;
      }
      cv::Point2d again;
      distort(back, again);
      result.worst_residual = std::max(result.worst_residual, std::abs(again.x - raw.x) + std::abs(again.y - raw.y));
      const double off = std::abs(back.x - ideal.x) + std::abs(back.y - ideal.y);
      result.worst = std::max(result.worst, off);
      if (off > tolerance) result.far.push_back(ideal);
    }
  }
  return result;
}
