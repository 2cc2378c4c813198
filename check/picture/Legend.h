#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

/// A colour of a picture and what it stands for.
struct LegendEntry {
  std::string text;
  cv::Scalar bgr;
};

/// The picture with a white band below it: a title, then a line an entry behind a mark of its colour. The picture's own
/// pixels stay where they are. Letters grow with the width.
cv::Mat withLegend(const cv::Mat& picture, const std::string& title, const std::vector<LegendEntry>& entries);
