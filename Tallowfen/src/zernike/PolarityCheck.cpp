#include "Tallowfen/src/zernike/PolarityCheck.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "platform/Console.h"

namespace kestrune {

namespace {

// Grey levels: an even ground, within its noise, is not to break into specks.
constexpr double kBelowMean = 2.5;
// A board has hundreds of dots; the other polarity shows a few at most, such as the inside of rings.
constexpr int kEnoughDots = 10;

}  // namespace

void findContoursByLocalMean(const cv::Mat& grey, int block, int type, cv::Mat& bin, std::vector<Contour>& contours,
                             std::vector<cv::Vec4i>& hierarchy) {
  cv::adaptiveThreshold(grey, bin, 255, cv::ADAPTIVE_THRESH_MEAN_C, type, block, kBelowMean);
  contours.clear();
  hierarchy.clear();
  cv::findContours(bin, contours, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
}

void PolarityCheck(const cv::Mat& grey, cv::Mat& bin, std::vector<Contour>& contours, std::vector<Contour>& candidates,
                   std::vector<cv::Vec4i>& hierarchy, int block) {
  int inner_counter = 0;
  for (std::size_t i = 0; i < contours.size(); ++i) {
    if (!isDot(contours[i], kCountedDots)) continue;
    candidates.push_back(contours[i]);
    if (isTopLevel(hierarchy[i])) ++inner_counter;
  }
  console::line("*****inner_counter:", inner_counter);
  if (inner_counter >= kEnoughDots) return;
  findContoursByLocalMean(grey, block, cv::THRESH_BINARY_INV, bin, contours, hierarchy);
}

}  // namespace kestrune
