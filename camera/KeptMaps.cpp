#include "camera/KeptMaps.h"

#include "platform/Pictures.h"

namespace {

/// Bit for bit, so that no matrix passes for another.
bool equalCameras(const StereoMatrices& a, const StereoMatrices& b) {
  return pictures::sameBytes(a.K1, b.K1) && pictures::sameBytes(a.D1, b.D1) && pictures::sameBytes(a.K2, b.K2) &&
         pictures::sameBytes(a.D2, b.D2) && pictures::sameBytes(a.R, b.R) && pictures::sameBytes(a.T, b.T);
}

StereoMatrices copyOf(const StereoMatrices& cameras) {
  return {cameras.K1.clone(), cameras.D1.clone(), cameras.K2.clone(),
          cameras.D2.clone(), cameras.R.clone(),  cameras.T.clone()};
}

}  // namespace

bool KeptMaps::equal(const Key& a, const Key& b) {
  return a.f_scale == b.f_scale && a.model == b.model && a.size == b.size && equalCameras(a.cameras, b.cameras);
}

const RectificationMaps& KeptMaps::of(const RectificationSettings& settings, const StereoMatrices& cameras,
                                      const cv::Size& size, LensModel model) {
  if (key_ && equal(*key_, {settings.f_scale, model, size, cameras})) return maps_;
  key_.reset();
  maps_ = {};  // Two pairs' maps are never held at once.
  maps_ = rectificationMaps(settings, cameras, size, model);
  key_ = Key{settings.f_scale, model, size, copyOf(cameras)};
  ++made_;
  return maps_;
}
