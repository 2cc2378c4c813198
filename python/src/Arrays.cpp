#include "python/src/Arrays.h"

#include <memory>
#include <stdexcept>

namespace binding {
namespace {

namespace py = pybind11;

py::dtype depthOf(const cv::Mat& picture) {
  switch (picture.depth()) {
    case CV_8U:
      return py::dtype::of<std::uint8_t>();
    case CV_16U:
      return py::dtype::of<std::uint16_t>();
    default:
      throw std::logic_error("a picture of 8 or 16 bit a channel was wanted");
  }
}

}  // namespace

py::array viewOf(const cv::Mat& picture) {
  auto kept = std::make_unique<cv::Mat>(picture);
  const cv::Mat& pixels = *kept;
  const py::capsule owner(kept.get(), [](void* held) { delete static_cast<cv::Mat*>(held); });
  static_cast<void>(kept.release());
  std::vector<py::ssize_t> shape = {pixels.rows, pixels.cols};
  std::vector<py::ssize_t> strides = {static_cast<py::ssize_t>(pixels.step[0]),
                                      static_cast<py::ssize_t>(pixels.elemSize())};
  if (pixels.channels() > 1) {
    shape.push_back(pixels.channels());
    strides.push_back(static_cast<py::ssize_t>(pixels.elemSize1()));
  }
  return {depthOf(pixels), shape, strides, pixels.data, owner};
}

}  // namespace binding
