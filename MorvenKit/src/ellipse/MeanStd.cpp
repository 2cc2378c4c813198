#include "MorvenKit/MeanStd.h"

#include <cmath>
#include <stdexcept>

namespace kestrune::morvenkit {

namespace {

float deviation(float mean_square, float mean) {
  const float variance = mean_square - mean * mean;
  return variance > 0.0F ? std::sqrt(variance) : 0.0F;
}

}  // namespace

MeanStd calcMeanStd(const std::vector<cv::Point2f>& points) {
  if (points.empty()) throw std::runtime_error("[calcMeanStd] no input data");
  float sum_x = 0.0F, sum_y = 0.0F, sum_xx = 0.0F, sum_yy = 0.0F;
  for (const cv::Point2f& point : points) {
    sum_x += point.x;
    sum_y += point.y;
    sum_xx += point.x * point.x;
    sum_yy += point.y * point.y;
  }
  const auto count = static_cast<float>(points.size());
  MeanStd result;
  result.mx = sum_x / count;
  result.my = sum_y / count;
  result.sx = deviation(sum_xx / count, result.mx);
  result.sy = deviation(sum_yy / count, result.my);
  return result;
}

}  // namespace kestrune::morvenkit
