#include "Tallowfen/src/ellipses/Centres.h"

namespace kestrune {

cv::Point2f centreOf(const Ellipse& ellipse) { return {static_cast<float>(ellipse.x), static_cast<float>(ellipse.y)}; }

std::vector<cv::Point2f> centresOf(const std::vector<Ellipse>& ellipses) {
  std::vector<cv::Point2f> centres;
  centres.reserve(ellipses.size());
  for (const Ellipse& ellipse : ellipses) centres.push_back(centreOf(ellipse));
  return centres;
}

}  // namespace kestrune
