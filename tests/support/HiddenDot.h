#pragma once

#include <cmath>
#include <cstdint>
#include <opencv2/imgproc.hpp>

#include "tools/scene/ImagedEllipse.h"

/// Paints a dot of an 8-bit image over with the paper around it.
inline void hideDot(cv::Mat& image, const scene::ImagedEllipse& dot) {
  const cv::Point centre(cv::Point2f(static_cast<float>(dot.centre.x), static_cast<float>(dot.centre.y)));
  const int reach = static_cast<int>(std::ceil(dot.semi_a)) + 2;
  const auto paper = image.at<std::uint8_t>(centre.y, centre.x + reach);
  cv::circle(image, centre, reach, cv::Scalar(paper), cv::FILLED);
}
