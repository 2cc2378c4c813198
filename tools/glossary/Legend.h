#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

/// A line of the legend: a sign, cut out of the picture or drawn, and what it stands for.
struct LegendEntry {
  cv::Mat sign;
  std::vector<std::string> text;
};

/// Text with its middle at a point.
void putTextAround(cv::Mat& picture, const std::string& text, const cv::Point2d& middle, double size,
                   const cv::Scalar& colour);

/// The legend as a picture of its own, BGR.
cv::Mat legendPicture(const cv::Size& size, const std::string& title, const std::vector<LegendEntry>& entries);
