#include <PolarLinePrecision.h>

#include <algorithm>
#include <opencv2/imgcodecs.hpp>

#include "fuzz/Harness.h"

// The bytes up to the first NUL are the list, those behind it the picture a.png; b.png is a good one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    static const bool written = cv::imwrite((fuzzing::folder() / "b.png").string(), cv::Mat::zeros(2, 3, CV_16UC1));
    const std::uint8_t* const end = data + size;
    const std::uint8_t* const nul = std::find(data, end, 0);
    if (nul != end) fuzzing::writeInput("a.png", nul + 1, static_cast<std::size_t>(end - nul - 1));
    ImagePairList images;
    if (written)
      ReadCalibImagelist(fuzzing::writeInput("list.txt", data, static_cast<std::size_t>(nul - data)), &images);
  });
}
