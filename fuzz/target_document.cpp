#include "Tallowfen/src/RingTarget.h"
#include "fuzz/Harness.h"
#include "fuzz/HugeBoard.h"

// The first byte chooses the document's form, the rest is the document; what was read is saved and read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const char* const kNames[] = {"target.json", "target.yml", "target.xml"};
  return fuzzing::run([&] {
    const std::string path = fuzzing::writeInput(kNames[data[0] % 3], data + 1, size - 1);
    if (fuzzing::isHuge(kestrune::readStorageConfig(path))) return;
    kestrune::RingTarget target;
    target.loadConfig(path);
    target.saveConfig(path);
    target.loadConfig(path);
  });
}
