#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <opencv2/core.hpp>

/// Largest absolute difference of two matrices of one size, whatever their types.
inline double distanceOf(const cv::Mat& a, const cv::Mat& b) {
  cv::Mat wide_a;
  cv::Mat wide_b;
  a.convertTo(wide_a, CV_64F);
  b.convertTo(wide_b, CV_64F);
  return cv::norm(wide_a, wide_b, cv::NORM_INF);
}

MATCHER_P2(MatNear, expected, tolerance, "") {
  const cv::Mat wanted(expected);
  if (arg.size() != wanted.size()) return false;
  *result_listener << "differs by " << distanceOf(arg, wanted) << "\n" << arg;
  return distanceOf(arg, wanted) <= tolerance;
}

MATCHER_P2(PointNear, expected, tolerance, "") {
  const double off = std::max(std::abs(arg.x - expected.x), std::abs(arg.y - expected.y));
  *result_listener << "differs by " << off;
  return off <= tolerance;
}
