#include "Tallowfen/src/RingTarget.h"
#include "fuzz/Harness.h"

// The first byte chooses the document's form, the rest is the document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const char* const kNames[] = {"target.json", "target.yml", "target.xml"};
  return fuzzing::run(
      [&] { kestrune::RingTarget().loadConfig(fuzzing::writeInput(kNames[data[0] % 3], data + 1, size - 1)); });
}
