#include "check/picture/PixelType.h"

#include <fmt/format.h>

#include <opencv2/core.hpp>

std::string pixelTypeOf(int type) {
  const int depth = CV_MAT_DEPTH(type);
  const int channels = CV_MAT_CN(type);
  const char* const suffix = depth == CV_8S || depth == CV_16S || depth == CV_32S ? " signed"
                             : depth >= CV_32F                                    ? " floating point"
                                                                                  : "";
  const std::string bits = fmt::format("{}-bit{}", 8 * CV_ELEM_SIZE1(type), suffix);
  if (channels == 1) return bits + " grey";
  return fmt::format("{}, {} channels", bits, channels);
}
