#include "camera/RectifyPair.h"

#include <opencv2/imgproc.hpp>

#include "camera/KeptMaps.h"
#include "camera/RectificationMaps.h"
#include "camera/RectifiedPictures.h"
#include "platform/Console.h"
#include "platform/Pictures.h"

namespace {

cv::Mat warped(const cv::Mat& image, const WarpMaps& maps) {
  cv::Mat output;
  cv::remap(image, output, maps.columns, maps.rows, cv::INTER_LINEAR, cv::BORDER_CONSTANT, cv::Scalar(0));
  return output;
}

cv::Mat turnedClockwise(const cv::Mat& image) {
  cv::Mat transposed;
  cv::Mat turned;
  cv::transpose(image, transposed);
  cv::flip(transposed, turned, 1);
  return turned;
}

void printVirtualCamera(const cv::Mat& Q) {
  const cv::Matx44d q(Q);
  console::line(" Virtual camera cx: ", -q(0, 3));
  console::line(" Virtual camera cy: ", -q(1, 3));
  console::line(" Virtual camera f: ", q(2, 3));
}

}  // namespace

std::optional<RectifiedPair> RectifyPair(const RectificationSettings& settings, const StereoMatrices& cameras,
                                         const cv::Mat& left_image, const cv::Mat& right_image,
                                         std::optional<LensModel> model, KeptMaps& maps, cv::Mat& Q) {
  cv::Mat left = left_image;
  cv::Mat right = right_image;
  if (model) {
    const RectificationMaps& warp = maps.of(settings, cameras, left_image.size(), *model);
    Q = warp.Q;
    left = warped(left_image, warp.left);
    right = warped(right_image, warp.right);
  }
  left = drawablePicture(left);
  right = drawablePicture(right);
  if (settings.x_y == kQuarterTurn) {
    left = turnedClockwise(left);
    right = turnedClockwise(right);
  }
  std::optional<RectifiedPair> rectified;
  if (settings.x_y == kQuarterTurn || settings.x_y == kRowsAsTheyAre) {
    pictures::requireHalves(left, right, CV_8UC3);
    rectified = RectifiedPair{left, right};
  }
  if (!Q.empty()) printVirtualCamera(Q);
  return rectified;
}
