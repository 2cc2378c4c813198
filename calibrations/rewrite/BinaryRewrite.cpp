#include "calibrations/rewrite/BinaryRewrite.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "input/BinaryLayout.h"
#include "input/Crc8.h"
#include "input/TableBlock.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// Places in a file and in an entry, in bytes.
constexpr std::size_t kCameras = 48;
constexpr std::size_t kFirstEntry = 50;
constexpr std::size_t kModelName = 22;
constexpr std::size_t kModelNameLength = 32;
constexpr std::size_t kParameters = kModelName + kModelNameLength;
constexpr std::size_t kPose = 6 * sizeof(float);
constexpr std::size_t kWholeCrcOfTabled = 21090;
/// Of the tabled form, whose cells each have a CRC-8 and whose block has none.
constexpr std::size_t kTabledCells = 24;

/// A byte that may be the CRC-8 of those from `first` on.
struct CheckByte {
  std::size_t first, place;

  std::uint8_t valueIn(const Bytes& bytes) const { return crc8(std::span(bytes).subspan(first, place - first)); }
  bool holdsIn(const Bytes& bytes) const { return valueIn(bytes) == bytes[place]; }
};

/// Where a camera stands in a file.
struct EntryPlaces {
  std::size_t first = 0;
  std::size_t kept = 0;  ///< Parameters that are read.
  std::optional<CheckByte> of_parameters;
  std::size_t table = 0;
  CheckByte of_camera{};
  std::size_t pose = 0;
  CheckByte of_entry{};

  std::size_t end() const { return of_entry.place + 1; }
};

bool isTabled(const Bytes& bytes) { return bytes[0] == 0; }

EntryPlaces entryFrom(const Bytes& bytes, std::size_t first, bool has_pose) {
  const auto name = std::span(bytes).subspan(first + kModelName, kModelNameLength);
  const std::string model(name.begin(), std::ranges::find(name, 0));
  EntryPlaces entry;
  entry.first = first;
  entry.table = first + kParameters;
  if (const ParameterField* const field = findParameterField(model)) {
    entry.kept = field->kept;
    entry.of_parameters = CheckByte{entry.table, entry.table + field->stored * sizeof(float)};
    entry.table = entry.of_parameters->place + 1;
  }
  const std::size_t crc_of_table = isTabled(bytes) ? 0 : 1;
  entry.of_camera = {first, entry.table + std::tuple_size_v<TableBlock> + crc_of_table};
  entry.pose = entry.of_camera.place + 1;
  entry.of_entry = {first, entry.pose + (has_pose ? kPose : 0)};
  return entry;
}

/// The first of two cameras is stored without a pose.
EntryPlaces rightEntry(const Bytes& bytes) {
  const EntryPlaces left = entryFrom(bytes, kFirstEntry, bytes[kCameras] > 2);
  return entryFrom(bytes, left.end(), true);
}

void putNumber(Bytes& bytes, std::size_t place, float number) {
  const auto bits = std::bit_cast<std::uint32_t>(number);
  for (std::size_t k = 0; k < sizeof(float); ++k) bytes[place + k] = static_cast<std::uint8_t>(bits >> (8U * k));
}

void putCell(Bytes& bytes, std::size_t place, const CameraCalib& camera, std::size_t cell) {
  const std::size_t first = cell * kCoefficientsPerCell;
  for (std::size_t k = 0; k < kCoefficientsPerCell; ++k) {
    putNumber(bytes, place + k * sizeof(float), camera.poly_x[first + k]);
    putNumber(bytes, place + (kCoefficientsPerCell + k) * sizeof(float), camera.poly_y[first + k]);
  }
}

/// The cells that a run takes, and the checks that a reader tests.
void putTable(Bytes& bytes, std::size_t table, const StereoCalibParams& calib) {
  const bool tabled = isTabled(bytes);
  const std::size_t stride = tabled ? kCellBytes + 1 : kCellBytes;
  const std::size_t cells = std::min(std::size_t{calib.left.poly_nx} * calib.left.poly_ny,  // As the reader has it.
                                     tabled ? kTabledCells : kMostBlockCells);
  for (std::size_t cell = 0; cell < cells; ++cell) {
    const std::size_t place = table + kGridBytes + cell * stride;
    putCell(bytes, place, calib.right, cell);
    const CheckByte check{place, place + kCellBytes};
    if (tabled) bytes[check.place] = check.valueIn(bytes);
  }
  const CheckByte check{table, table + std::tuple_size_v<TableBlock>};
  if (!tabled) bytes[check.place] = check.valueIn(bytes);
}

}  // namespace

std::vector<std::uint8_t> withRightCamera(std::vector<std::uint8_t> bytes, const StereoCalibParams& calib) {
  const EntryPlaces entry = rightEntry(bytes);
  std::vector<CheckByte> checks;
  if (entry.of_parameters) checks.push_back(*entry.of_parameters);
  checks.push_back(entry.of_camera);
  checks.push_back(entry.of_entry);
  checks.push_back({0, isTabled(bytes) ? kWholeCrcOfTabled : bytes.size() - 1});
  std::erase_if(checks, [&bytes](const CheckByte& check) { return !check.holdsIn(bytes); });

  for (std::size_t k = 0; k < entry.kept; ++k) {
    putNumber(bytes, entry.first + kParameters + k * sizeof(float), static_cast<float>(calib.right.intrinsics.at(k)));
  }
  putTable(bytes, entry.table, calib);
  for (std::size_t k = 0; k < calib.extrinsics.size(); ++k) {
    putNumber(bytes, entry.pose + k * sizeof(float), static_cast<float>(calib.extrinsics.at(k)));
  }
  for (const CheckByte& check : checks) bytes[check.place] = check.valueIn(bytes);
  return bytes;
}
