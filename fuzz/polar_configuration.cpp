#include "fuzz/Harness.h"
#include "input/PolarConfigReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    PolarConfig config;
    ReadPolarConfig(fuzzing::writeInput("polar.txt", data, size), "folder", config);
  });
}
