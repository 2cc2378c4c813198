#pragma once

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>
#include <vector>

/// A board description for detections that need no numbering.
inline std::string frameTarget() {
  return "board_type: 3\nrows: 16\ncols: 26\ninner_width: 5\ninner_height: 3\nstep: 20\nmin_radius: 1\nmax_radius: 50\n"
         "max_sigma: 1\nmin_circularity: 0.8\nbin_method: 0\nbin_blocksize: 200\n";
}

/// Centres of a grid of discs, 60 apart, that leaves the lower right free. The detection's local threshold is even
/// inside such a grid; around lone discs it is not.
inline std::vector<cv::Point> discGrid() {
  std::vector<cv::Point> centres;
  for (int y = 52; y <= 832; y += 60) {
    for (int x = 40; x <= 1000; x += 60) centres.emplace_back(x, y);
  }
  return centres;
}

/// Dark discs of equal shape on a bright ground.
inline cv::Mat discs(const std::vector<cv::Point>& centres) {
  cv::Mat image(1024, 1280, CV_8UC1, cv::Scalar(200));
  for (const cv::Point& centre : centres) cv::circle(image, centre, 14, cv::Scalar(30), cv::FILLED);
  cv::GaussianBlur(image, image, cv::Size(7, 7), 1.2);
  return image;
}
