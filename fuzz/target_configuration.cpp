#include "Tallowfen/src/RingTarget.h"
#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] { kestrune::RingTarget().loadConfig(fuzzing::writeInput("target.ini", data, size)); });
}
