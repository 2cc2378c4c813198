#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "polarline/check.h"

namespace polarline {

/// SHA-256 (FIPS 180-4) of a file's content in hexadecimal digits; empty when it can't be read.
std::string sha256OfFile(const std::string& path);

/// SHA-256 of a text.
std::string sha256(const std::string& text);

/// SHA-256 of a picture in memory: of its rows, columns and type of pixel, then of the pixels.
std::string sha256OfPicture(const cv::Mat& picture);

/// What tells a set from another: over roles and contents, in the order of the roles, paths left out.
std::string fingerprint(std::vector<SetInput> inputs);

}  // namespace polarline
