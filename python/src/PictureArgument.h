#pragma once

#include <pybind11/numpy.h>

#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace binding {

/// A picture that a caller gave as an array. The pixels are the array's own, and nothing is copied, wherever OpenCV can
/// read them where they are: each row in one piece from left to right, rows any way downward. Otherwise they are those
/// of an orderly copy.
struct PictureArgument {
  pybind11::array array;  ///< Keeps the pixels alive; to be destroyed with the GIL held.
  cv::Mat pixels;

  /// `name`: of the argument, for the `TypeError` that says what was found and wanted.
  PictureArgument(const pybind11::handle& given, const std::string& name);
};

/// The pixels of many.
std::vector<cv::Mat> pixelsOf(const std::vector<PictureArgument>& pictures);

/// Refuses a right picture of another type than the left one of its pair: evaluations lay the two side by side.
void demandLikePairs(const std::vector<PictureArgument>& left, const std::vector<PictureArgument>& right);

/// A picture for each entry of a sequence; the name counts them: "left[0]".
std::vector<PictureArgument> pictureArguments(const pybind11::sequence& given, const std::string& name);

}  // namespace binding
