#include "python/src/PictureArgument.h"

#include <algorithm>
#include <cstdint>

namespace binding {
namespace {

namespace py = pybind11;

constexpr const char* kWanted =
    "; a numpy array was wanted: uint8 grey or colour, or uint16 grey; grey is of shape (rows, columns), colour of "
    "(rows, columns, 3 or 4) in the order blue, green, red";

std::string found(const py::handle& given) {
  if (!py::isinstance<py::array>(given)) return py::str(py::type::of(given).attr("__name__"));
  return std::string(py::str(given.attr("dtype"))) + " of shape " + std::string(py::str(given.attr("shape")));
}

bool isPicture(const py::array& array) {
  const py::dtype type = array.dtype();
  if (type.kind() != 'u' || (type.itemsize() != 1 && type.itemsize() != 2)) return false;
  if (array.ndim() != 2 && array.ndim() != 3) return false;
  const py::ssize_t channels = array.ndim() == 3 ? array.shape(2) : 1;
  constexpr py::ssize_t kLongest = 1 << 20;  // Sides beyond that are no picture's.
  const bool is_colour = type.itemsize() == 1 && (channels == 3 || channels == 4);  // The detector takes no deeper one.
  return array.size() > 0 && array.shape(0) < kLongest && array.shape(1) < kLongest && (channels == 1 || is_colour);
}

/// Can OpenCV read it where it lies?
bool isOrderly(const py::array& array) {
  const py::ssize_t item = array.itemsize();
  const py::ssize_t channels = array.ndim() == 3 ? array.shape(2) : 1;
  const py::ssize_t pixel = item * channels;
  const bool are_channels_together = channels == 1 || array.strides(2) == item;
  const bool are_columns_together = array.shape(1) == 1 || array.strides(1) == pixel;
  const py::ssize_t row = array.strides(0);
  const bool are_rows_downward = array.shape(0) == 1 || (row >= pixel * array.shape(1) && row % item == 0);
  const bool is_aligned = reinterpret_cast<std::uintptr_t>(array.data()) % static_cast<std::uintptr_t>(item) == 0;
  return are_channels_together && are_columns_together && are_rows_downward && is_aligned &&
         array.dtype().attr("isnative").cast<bool>();
}

py::array orderly(const py::array& array) {
  if (isOrderly(array)) return array;
  const py::object native = array.dtype().attr("newbyteorder")("=");
  return py::module_::import("numpy").attr("ascontiguousarray")(array, native);
}

cv::Mat matOf(const py::array& array) {
  const int depth = array.itemsize() == 1 ? CV_8U : CV_16U;
  const int channels = array.ndim() == 3 ? static_cast<int>(array.shape(2)) : 1;
  const auto rows = static_cast<int>(array.shape(0));
  const std::size_t only_row = cv::Mat::AUTO_STEP;
  const std::size_t step = rows > 1 ? static_cast<std::size_t>(array.strides(0)) : only_row;
  // The library reads the pixels only; OpenCV has no picture that says so.
  void* const pixels = const_cast<void*>(array.data());
  return {rows, static_cast<int>(array.shape(1)), CV_MAKETYPE(depth, channels), pixels, step};
}

}  // namespace

PictureArgument::PictureArgument(const py::handle& given, const std::string& name) {
  if (!py::isinstance<py::array>(given) || !isPicture(py::reinterpret_borrow<py::array>(given)))
    throw py::type_error(name + ": found " + found(given) + kWanted);
  array = orderly(py::reinterpret_borrow<py::array>(given));
  pixels = matOf(array);
}

std::vector<cv::Mat> pixelsOf(const std::vector<PictureArgument>& pictures) {
  std::vector<cv::Mat> all;
  all.reserve(pictures.size());
  for (const PictureArgument& each : pictures) all.push_back(each.pixels);
  return all;
}

void demandLikePairs(const std::vector<PictureArgument>& left, const std::vector<PictureArgument>& right) {
  for (std::size_t k = 0; k < std::min(left.size(), right.size()); ++k) {
    if (left[k].pixels.type() == right[k].pixels.type()) continue;
    std::string problem = "right[" + std::to_string(k) + "]: found ";
    problem += found(right[k].array);
    problem += "; a picture of the type of left[" + std::to_string(k) + "] was wanted, which is ";
    problem += found(left[k].array);
    throw py::type_error(problem);
  }
}

std::vector<PictureArgument> pictureArguments(const py::sequence& given, const std::string& name) {
  std::vector<PictureArgument> all;
  all.reserve(given.size());
  for (std::size_t k = 0; k < given.size(); ++k)
    all.emplace_back(py::object(given[k]), name + "[" + std::to_string(k) + "]");
  return all;
}

}  // namespace binding
