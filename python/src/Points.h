#pragma once

#include <pybind11/numpy.h>

#include <opencv2/core.hpp>
#include <vector>

/// Lists of points as arrays of the shape (n, 3).
namespace binding {

template <typename Number>
using PointArray = pybind11::array_t<Number, pybind11::array::c_style | pybind11::array::forcecast>;

template <typename Number>
PointArray<Number> arrayOf(const std::vector<cv::Point3_<Number>>& points) {
  PointArray<Number> array({static_cast<pybind11::ssize_t>(points.size()), pybind11::ssize_t{3}});
  auto cells = array.template mutable_unchecked<2>();
  for (std::size_t k = 0; k < points.size(); ++k) {
    const auto row = static_cast<pybind11::ssize_t>(k);
    cells(row, 0) = points[k].x;
    cells(row, 1) = points[k].y;
    cells(row, 2) = points[k].z;
  }
  return array;
}

template <typename Number>
std::vector<cv::Point3_<Number>> pointsOf(const PointArray<Number>& array) {
  if (array.ndim() != 2 || array.shape(1) != 3)
    throw pybind11::value_error("boardPoints: an array of shape (n, 3) was wanted");
  const auto cells = array.template unchecked<2>();
  std::vector<cv::Point3_<Number>> points;
  for (pybind11::ssize_t row = 0; row < array.shape(0); ++row)
    points.emplace_back(cells(row, 0), cells(row, 1), cells(row, 2));
  return points;
}

}  // namespace binding
