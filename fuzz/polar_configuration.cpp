#include <PolarLinePrecision.h>

#include "fuzz/Harness.h"
#include "input/PolarConfigReader.h"

// The same bytes as a file and, behind a comment line so that they name none, as the text itself. That export goes no
// further, for want of a calibration.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    PolarConfig config;
    ReadPolarConfig(fuzzing::writeInput("polar.txt", data, size), "folder", config);
    const std::string text = "# \n" + std::string(data, data + size);
    CalTempCompensateCoeff(text.c_str(), "", "", "");
  });
}
