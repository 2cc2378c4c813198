#include "Tallowfen/src/zernike/DotContour.h"

#include <opencv2/imgproc.hpp>

namespace kestrune {

double circularityOf(const Contour& contour) {
  const double perimeter = cv::arcLength(contour, true);
  if (perimeter == 0) return 0;
  return 4 * CV_PI * cv::contourArea(contour) / (perimeter * perimeter);
}

bool isDot(const Contour& contour, const DotLimits& limits) {
  return limits.admitLength(contour.size()) && limits.admitCircularity(circularityOf(contour));
}

}  // namespace kestrune
