#include "camera/RectifyPair.h"

#include <opencv2/imgproc.hpp>

#include "camera/DrawablePicture.h"
#include "camera/PolarLineCanvas.h"
#include "camera/RectificationMaps.h"
#include "platform/Console.h"

namespace {

constexpr std::int32_t kRowsAsTheyAre = 0;
constexpr std::int32_t kQuarterTurn = 1;

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

void RectifyPair(const RectificationSettings& settings, cv::Mat& Q, std::vector<cv::Mat>& rectified,
                 const cv::Mat& left_image, const cv::Mat& right_image, const StereoMatrices& cameras,
                 cv::Mat& left_rectified, cv::Mat& right_rectified, const std::int32_t& type) {
  rectified.clear();
  if (hasRectification(type)) {
    const RectificationMaps maps = rectificationMaps(settings, cameras, left_image.size(), type);
    Q = maps.Q;
    left_rectified = warped(left_image, maps.left);
    right_rectified = warped(right_image, maps.right);
  }
  if (left_rectified.empty()) left_rectified = left_image;
  if (right_rectified.empty()) right_rectified = right_image;
  left_rectified = drawablePicture(left_rectified);
  right_rectified = drawablePicture(right_rectified);

  if (settings.x_y == kQuarterTurn) {
    left_rectified = turnedClockwise(left_rectified);
    right_rectified = turnedClockwise(right_rectified);
  }
  if (settings.x_y == kQuarterTurn || settings.x_y == kRowsAsTheyAre) {
    rectified = {left_rectified, right_rectified, polarLineCanvas(left_rectified, right_rectified)};
  }
  if (!Q.empty()) printVirtualCamera(Q);
}
