#include "camera/CameraIntrinsicsBase.h"

#include <cstddef>

void CameraIntrinsicsBase::AddDistortionToAll(const PointColumns& normalised) const {
  for (std::size_t k = 0; k < normalised.x.size(); ++k) {
    cv::Point2d raw;
    AddDistortion({normalised.x[k], normalised.y[k]}, raw);
    normalised.x[k] = raw.x;
    normalised.y[k] = raw.y;
  }
}
