#include "Tallowfen/src/zernike/PolarityCheck.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "platform/Console.h"

namespace kestrune {

namespace {

// Grey levels: an even ground, within its noise, is not to break into specks.
constexpr double kMostBelowOfBright = 2.0;
// A board has hundreds of dots; the other polarity shows a few at most, such as the inside of rings.
constexpr int kEnoughDots = 10;

}  // namespace

cv::Mat belowLocalMean(const cv::Mat& grey, int block) {
  CV_Assert(grey.type() == CV_8UC1);
  cv::Mat mean;
  cv::boxFilter(grey, mean, grey.type(), {block, block}, {-1, -1}, true, cv::BORDER_REPLICATE | cv::BORDER_ISOLATED);
  cv::subtract(mean, grey, mean);
  return mean;
}

void findContoursByLocalMean(const cv::Mat& below_mean, Polarity polarity, cv::Mat& bin, std::vector<Contour>& contours,
                             std::vector<cv::Vec4i>& hierarchy) {
  const bool bright = polarity == Polarity::kBright;
  cv::compare(below_mean, kMostBelowOfBright, bin, bright ? cv::CMP_LE : cv::CMP_GE);
  contours.clear();
  hierarchy.clear();
  cv::findContours(bin, contours, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
}

void PolarityCheck(const cv::Mat& below_mean, cv::Mat& bin, std::vector<Contour>& contours,
                   std::vector<Contour>& candidates, std::vector<cv::Vec4i>& hierarchy) {
  int inner_counter = 0;
  for (std::size_t i = 0; i < contours.size(); ++i) {
    if (!isDot(contours[i], kCountedDots)) continue;
    candidates.push_back(contours[i]);
    if (isTopLevel(hierarchy[i])) ++inner_counter;
  }
  console::line("*****inner_counter:", inner_counter);
  if (inner_counter >= kEnoughDots) return;
  findContoursByLocalMean(below_mean, Polarity::kDark, bin, contours, hierarchy);
}

}  // namespace kestrune
