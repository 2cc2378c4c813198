#include "fuzz/Harness.h"
#include "input/CalibrationReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    StereoCalibParams calib;
    std::string error;
    ReadCalibResult(fuzzing::writeInput("calib.json", data, size), calib, error);
  });
}
