#include "MorvenKit/src/binarise/FillBlobs.h"

#include <climits>
#include <opencv2/imgproc.hpp>
#include <utility>
#include <vector>

#include "MorvenKit/src/contours/RefineSubPixel.h"
#include "MorvenKit/src/contours/RoundContour.h"

namespace kestrune::morvenkit {

namespace {

/// Whether a part of the contour is outside the grey image and the rest fits an ellipse.
bool isCutOff(const Contour& contour, const cv::Mat& grey) {
  std::vector<cv::Point2f> refined = RefineSubPixel(contour, grey);
  return refined.size() != contour.size() && fitEllipseRobust(std::move(refined)).sigma > 0.0;
}

}  // namespace

void fillBlobs(const cv::Mat& grey, const EllipseDetectorParams& params, cv::Mat& binary) {
  // The refinement drops only points outside the grey image; with equal sizes there are none.
  if (grey.size() == binary.size()) return;
  const cv::Mat inverse = 255 - binary;
  std::vector<Contour> contours;
  cv::findContours(inverse, contours, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_NONE);
  for (int i = 0; i < static_cast<int>(contours.size()); ++i) {
    const Contour& contour = contours[static_cast<std::size_t>(i)];
    if (!isRoundContour(contour, params) || !isCutOff(contour, grey)) continue;
    cv::drawContours(binary, contours, i, cv::Scalar(255, 255, 255, 255), cv::FILLED, cv::LINE_8, cv::noArray(),
                     INT_MAX);
  }
}

}  // namespace kestrune::morvenkit
