#include "polar/evaluate/rectified/CloudLookup.h"

#include <algorithm>

cv::Point3f cloudPosition(const std::vector<CloudPoint>& cloud, std::int32_t id) {
  const auto found = std::find_if(cloud.begin(), cloud.end(), [id](const CloudPoint& point) { return point.id == id; });
  return found == cloud.end() ? cv::Point3f(0.0F, 0.0F, 0.0F) : cv::Point3f(found->x, found->y, found->z);
}
