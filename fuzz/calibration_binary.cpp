#include "fuzz/Harness.h"
#include "input/CalibrationReader.h"
#include "input/MultiCalibrationLoader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    const std::string path = fuzzing::writeInput("calib.bin", data, size);
    MultiCalibration record;
    loadMultiCalibration(path.c_str(), &record, 0);
    StereoCalibParams calib;
    std::string error;
    ReadCalibResult(path, calib, error);
  });
}
