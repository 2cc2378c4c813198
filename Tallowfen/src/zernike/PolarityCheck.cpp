#include "Tallowfen/src/zernike/PolarityCheck.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "platform/Console.h"

namespace kestrune {

namespace {

constexpr int kEnoughDots = 10;
constexpr int kNoParent = -1;

}  // namespace

void findContoursByLocalMean(const cv::Mat& grey, int block, int type, cv::Mat& bin, std::vector<Contour>& contours,
                             std::vector<cv::Vec4i>& hierarchy) {
  cv::adaptiveThreshold(grey, bin, 255, cv::ADAPTIVE_THRESH_MEAN_C, type, block, 2.5);
  contours.clear();
  hierarchy.clear();
  cv::findContours(bin, contours, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
}

double circularityOf(const Contour& contour) {
  const double perimeter = cv::arcLength(contour, true);
  if (perimeter == 0) return 0;
  return 4 * CV_PI * cv::contourArea(contour) / (perimeter * perimeter);
}

bool isDot(const Contour& contour, const DotLimits& limits) {
  return limits.admitLength(contour.size()) && limits.admitCircularity(circularityOf(contour));
}

void PolarityCheck(const cv::Mat& grey, cv::Mat& bin, std::vector<Contour>& contours, std::vector<Contour>& candidates,
                   std::vector<cv::Vec4i>& hierarchy, int block) {
  int inner_counter = 0;
  for (std::size_t i = 0; i < contours.size(); ++i) {
    if (!isDot(contours[i], kCountedDots)) continue;
    candidates.push_back(contours[i]);
    if (hierarchy[i][3] == kNoParent) ++inner_counter;
  }
  console::line("*****inner_counter:", inner_counter);
  if (inner_counter >= kEnoughDots) return;
  findContoursByLocalMean(grey, block, cv::THRESH_BINARY_INV, bin, contours, hierarchy);
}

}  // namespace kestrune
