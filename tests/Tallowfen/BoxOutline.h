#pragma once

#include <opencv2/core.hpp>
#include <vector>

/// The pixels around a box, as a contour has them: 2 (width + height) of them, each a pixel from the next, so that the
/// circularity is pi width height / (width + height)^2.
inline std::vector<cv::Point> boxOutline(int width, int height) {
  std::vector<cv::Point> outline;
  for (int x = 0; x < width; ++x) outline.emplace_back(x, 0);
  for (int y = 0; y < height; ++y) outline.emplace_back(width, y);
  for (int x = width; x > 0; --x) outline.emplace_back(x, height);
  for (int y = height; y > 0; --y) outline.emplace_back(0, y);
  return outline;
}

/// The same with its second point left out: length and area stay.
inline std::vector<cv::Point> onePointLess(std::vector<cv::Point> outline) {
  outline.erase(outline.begin() + 1);
  return outline;
}

/// The same with its first point twice: length and area stay.
inline std::vector<cv::Point> onePointMore(std::vector<cv::Point> outline) {
  outline.insert(outline.begin(), outline.front());
  return outline;
}
