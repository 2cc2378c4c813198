#include "check/run/RunWarps.h"

#include <memory>
#include <opencv2/imgproc.hpp>

#include "camera/RectificationMaps.h"
#include "polar/run/RunCameras.h"

namespace polarline {
namespace {

cv::Mat warped(const cv::Mat& picture, const WarpMaps& maps) {
  cv::Mat output;
  cv::remap(picture, output, maps.columns, maps.rows, cv::INTER_LINEAR, cv::BORDER_CONSTANT, cv::Scalar(0));
  return output;
}

}  // namespace

RunWarps::RunWarps(const RunInputs& inputs)
    : rectifies_(!inputs.areRectified() && !inputs.areFrames() && inputs.config.crop == 0) {
  core_.config = std::make_shared<const PolarConfig>(inputs.config);
  rectifies_ = rectifies_ && core_.lensModel() && loadRunCameras(core_, inputs.calib);
}

PairWarps RunWarps::of(const cv::Size& size) {
  if (!rectifies_) return {};
  const RectificationSettings settings{core_.config->f_scale, core_.config->x_y, core_.left_camera, core_.right_camera};
  const StereoMatrices cameras{core_.left.K, core_.left.D, core_.right.K, core_.right.D, core_.R, core_.T};
  const RectificationMaps& maps = core_.maps.of(settings, cameras, size, core_.lensModel().value());
  return {[&maps](const cv::Mat& picture) { return warped(picture, maps.left); },
          [&maps](const cv::Mat& picture) { return warped(picture, maps.right); }};
}

}  // namespace polarline
