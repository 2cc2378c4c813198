#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <opencv2/core.hpp>

/// Renders what `inside` tells of each place (x, y), pixel centres on integers, with so many samples a pixel in x and
/// in y.
inline cv::Mat renderShape(cv::Size size, std::uint8_t inside_grey, std::uint8_t outside_grey,
                           const std::function<bool(double, double)>& inside, int samples = 8) {
  cv::Mat image(size, CV_8UC1);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      int hits = 0;
      for (int i = 0; i < samples * samples; ++i) {
        const double sx = x - 0.5 + (i % samples + 0.5) / samples, sy = y - 0.5 + (i / samples + 0.5) / samples;
        hits += inside(sx, sy) ? 1 : 0;
      }
      const double share = hits / static_cast<double>(samples * samples);
      image.at<std::uint8_t>(y, x) =
          static_cast<std::uint8_t>(std::lround(outside_grey + share * (inside_grey - outside_grey)));
    }
  }
  return image;
}

/// A straight edge at `distance` from (centre, centre) along the direction `angle`; the far side is bright.
inline cv::Mat renderStep(int side, double distance, double angle, std::uint8_t dark, std::uint8_t bright) {
  const double centre = side / 2;
  const auto beyond = [=](double x, double y) {
    return (x - centre) * std::cos(angle) + (y - centre) * std::sin(angle) > distance;
  };
  return renderShape({side, side}, bright, dark, beyond, 40);
}

/// `count` x `count` discs, `pitch` apart, the first one at (first, first).
inline cv::Mat renderDiscs(int side, int count, double first, double pitch, double radius, std::uint8_t disc,
                           std::uint8_t ground) {
  return renderShape({side, side}, disc, ground, [=](double x, double y) {
    const auto nearest = [&](double v) {
      return first + pitch * std::clamp(std::round((v - first) / pitch), 0.0, count - 1.0);
    };
    return std::hypot(x - nearest(x), y - nearest(y)) < radius;
  });
}
