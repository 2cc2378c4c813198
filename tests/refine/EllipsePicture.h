#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <vector>

#include "refine/outline/Outline.h"
#include "tools/scene/Random.h"

/// Ellipses on paper as a lens and square pixels make them, by brute force: a fine grid is painted, blurred and binned.
/// Shares nothing with the formulas that it tests.
struct EllipsePicture {
  struct Mark {
    cv::Point2d centre;
    double a = 5.0, b = 5.0, angle = 0.0;
    double hole = 0.0;  ///< Radius of a hole as a share.
  };

  cv::Size size{40, 36};
  double paper = 200.0, ink = 20.0, blur = 0.7;
  std::vector<Mark> marks;

  cv::Mat render() const {
    constexpr int kFine = 8;
    cv::Mat fine(size * kFine, CV_32F);
    for (int row = 0; row < fine.rows; ++row) {
      for (int column = 0; column < fine.cols; ++column)
        fine.at<float>(row, column) =
            static_cast<float>(greyAt((column + 0.5) / kFine - 0.5, (row + 0.5) / kFine - 0.5));
    }
    cv::GaussianBlur(fine, fine, cv::Size(), blur * kFine, blur * kFine, cv::BORDER_REPLICATE);
    cv::Mat result;
    cv::resize(fine, result, size, 0, 0, cv::INTER_AREA);
    return result;
  }

  /// 8 bits, with Gaussian noise.
  cv::Mat digitised(double noise, std::uint64_t seed) const {
    const cv::Mat exact = render();
    scene::Random random(seed);
    cv::Mat result(size, CV_8U);
    for (int row = 0; row < size.height; ++row) {
      for (int column = 0; column < size.width; ++column) {
        const double grey = exact.at<float>(row, column) + noise * random.normal();
        result.at<std::uint8_t>(row, column) = static_cast<std::uint8_t>(std::clamp(std::round(grey), 0.0, 255.0));
      }
    }
    return result;
  }

  static refine::Outline outlineOf(const Mark& mark) {
    const double c = std::cos(mark.angle), s = std::sin(mark.angle);
    const double aa = mark.a * mark.a, bb = mark.b * mark.b;
    return {mark.centre, aa * c * c + bb * s * s, (aa - bb) * c * s, aa * s * s + bb * c * c};
  }

 private:
  double greyAt(double x, double y) const {
    for (const Mark& mark : marks) {
      const double c = std::cos(mark.angle), s = std::sin(mark.angle);
      const double u = (c * (x - mark.centre.x) + s * (y - mark.centre.y)) / mark.a;
      const double v = (-s * (x - mark.centre.x) + c * (y - mark.centre.y)) / mark.b;
      const double squared = u * u + v * v;
      if (squared < 1.0 && squared >= mark.hole * mark.hole) return ink;
    }
    return paper;
  }
};
