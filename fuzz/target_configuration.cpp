#include "Tallowfen/src/RingTarget.h"
#include "fuzz/Harness.h"
#include "fuzz/HugeBoard.h"

// The same bytes as a file and as the text itself; what was read is saved and read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    const std::string text = "# \n" + std::string(data, data + size);
    if (fuzzing::isHuge(kestrune::readTextConfig(text))) return;
    kestrune::RingTarget target;
    target.loadConfig(text);
    target.loadConfig(fuzzing::writeInput("target.ini", data, size));
    const std::string saved = (fuzzing::folder() / "saved.yml").string();
    target.saveConfig(saved);
    target.loadConfig(saved);
  });
}
