#include <string_view>

#include "fuzz/Harness.h"
#include "polarline/calibration.h"
#include "polarline/errors.h"

/// The files of a calibration, one behind the other with a line of "@@@@" between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::string_view kBetween = "\n@@@@\n";
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> files;
  for (bool isMore = true; isMore && files.size() < 3;) {
    const std::string_view text = rest.substr(0, rest.find(kBetween));
    isMore = text.size() < rest.size();
    rest.remove_prefix(isMore ? text.size() + kBetween.size() : rest.size());
    files.push_back(fuzzing::writeInput("calib" + std::to_string(files.size()),
                                        reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
  }
  for (const char* model : {"", "fisheye"}) {
    polarline::ImportOptions options;
    options.model = model;
    options.swap = size % 2 == 1;
    if (size % 3 == 1) options.baseline = 60.0;
    if (size % 5 == 1) options.pair = {1, 2};
    fuzzing::silence();
    try {  // Any other exception is a finding.
      const polarline::ImportedCalibration imported = polarline::importCalibration(files, options);
      polarline::calibrationJson(imported.calibration);
      polarline::openCvText(imported.calibration);
      polarline::importedCalibrationJson(imported);
    } catch (const polarline::InputError&) {
      continue;
    }
  }
  return 0;
}
