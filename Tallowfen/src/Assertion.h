#pragma once

#include <opencv2/core.hpp>

namespace kestrune {

/// Throws `cv::Exception` of code -215 with this text, in the name of the operation that the caller asked for, unless
/// the condition holds.
inline void assertThat(bool holds, const char* text, const char* operation) {
  if (!holds) cv::error(cv::Error::StsAssert, text, operation, __FILE__, __LINE__);
}

}  // namespace kestrune
