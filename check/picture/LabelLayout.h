#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

/// A text that may be drawn beside a place; pixels of the canvas.
struct Label {
  std::string text;
  cv::Rect box;  ///< Where it is drawn.
};

/// A wish for a label.
struct LabelWish {
  std::string text;
  cv::Point place;  ///< What it belongs to.
  cv::Size size;
};

/// The labels that find room on a canvas, taken in the order of the wishes: none lies on another or over the edge. Each
/// is put below and to the right of its place, else at one of the other corners.
std::vector<Label> layOut(const std::vector<LabelWish>& wishes, const cv::Size& canvas);
