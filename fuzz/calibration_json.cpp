#include <PolarLinePrecision.h>

#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    ExportedCalibParams calibration;
    ReadCalibParams(fuzzing::writeInput("calib.json", data, size), &calibration);
  });
}
