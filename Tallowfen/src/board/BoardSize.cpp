#include "Tallowfen/src/board/BoardSize.h"

#include <opencv2/core.hpp>

namespace kestrune {

std::size_t dotCountOf(const RingTargetConfig& config) {
  const std::size_t count = std::size_t{config.rows} * std::size_t{config.cols};
  if (count > kMostDots) {
    CV_Error_(cv::Error::StsOutOfRange, ("rows * cols is %d * %d = %zu dots, the most is %zu", int{config.rows},
                                         int{config.cols}, count, kMostDots));
  }
  return count;
}

}  // namespace kestrune
