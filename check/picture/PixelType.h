#pragma once

#include <string>

/// A `cv::Mat` type in words: "8-bit grey", "16-bit, 3 channels", "32-bit floating point, 2 channels".
std::string pixelTypeOf(int type);
