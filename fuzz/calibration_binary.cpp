#include <PolarLinePrecision.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

#include "fuzz/Harness.h"
#include "input/BinaryLayout.h"
#include "input/Crc8.h"

namespace {

constexpr std::size_t kHeader = 50;
constexpr std::size_t kCameras = 48;
constexpr std::size_t kModelName = 22;
constexpr std::size_t kParameters = 54;
constexpr std::size_t kTableBlock = 2016;
constexpr std::size_t kCells = 24;
constexpr std::size_t kCell = 80;
constexpr std::size_t kTabledFile = 21091;

using File = std::vector<std::uint8_t>;

/// Writes the CRC-8 of `count` bytes behind them, where the file has room for it.
void mend(File& file, std::size_t start, std::size_t count) {
  if (start + count < file.size()) file[start + count] = crc8(std::span(file).subspan(start, count));
}

/// The size of the entry at `start`, its CRCs set right.
std::size_t mendEntry(File& file, std::size_t start, bool tabled, bool has_pose) {
  const char* const name = reinterpret_cast<const char*>(file.data()) + start + kModelName;
  const ParameterField* const field = findParameterField(std::string(name, strnlen(name, kParameters - kModelName)));
  const std::size_t block = kParameters + (field == nullptr ? 0 : field->stored * sizeof(float) + 1);
  if (!tabled) mend(file, start + block, kTableBlock);
  for (std::size_t k = 0; tabled && k < kCells; ++k) mend(file, start + block + 2 + k * (kCell + 1), kCell);
  return block + kTableBlock + (tabled ? 0 : 1) + 2 + (has_pose ? 6 * sizeof(float) : 0);
}

/// The same file with its CRCs right, and the tabled form in its size: no mutation would come upon these.
File mended(File file) {
  const bool tabled = file.front() == 0;
  if (tabled) file.resize(kTabledFile);
  if (file.size() < kHeader) return file;
  const std::size_t cameras = file[kCameras];
  std::size_t start = kHeader;
  for (std::size_t k = 0; k < cameras && start + kParameters <= file.size(); ++k) {
    start += mendEntry(file, start, tabled, cameras >= 3 || (cameras == 2 && k == 1));
  }
  if (tabled) mend(file, 0, kTabledFile - 1);
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  return fuzzing::run([&] {
    MultiCalibration record;
    LoadCalibrationParamsMulti(fuzzing::writeInput("calib.bin", data, size).c_str(), &record, 0);
    const File good = mended(File(data, data + size));
    const std::string path = fuzzing::writeInput("calib.bin", good.data(), good.size());
    if (LoadCalibrationParamsMulti(path.c_str(), &record, 0) != 0 && size % 16 != 0) return;
    // The tables that this one writes take most of the time.
    ExportedCalibParams calibration;
    ReadCalibParams(path, &calibration);
  });
}
