#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace polarline {

/// An 8-bit picture, grey or BGR, as "data:image/jpeg;base64,...", made smaller to what a page needs.
std::string jpegUri(const cv::Mat& picture);

/// Bytes in base 64 (RFC 4648).
std::string base64(const std::vector<unsigned char>& bytes);

}  // namespace polarline
