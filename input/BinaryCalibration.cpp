#include "input/BinaryCalibration.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "PolarLinePrecision/CalibrationRecords.h"
#include "PolarLinePrecision/Status.h"
#include "input/MultiCalibrationLoader.h"
#include "input/PackedReader.h"
#include "input/PolyTableFiles.h"
#include "input/PolyTables.h"
#include "input/TableBlock.h"
#include "platform/Console.h"
#include "platform/Files.h"

namespace {

/// A grid that cannot be used is stored as one without cells.
void readGrid(const TableBlock& block, CameraCalib& camera) {
  const bool usable = usableCells(block[0], block[1], kMostBlockCells) > 0;
  camera.poly_nx = usable ? block[0] : std::uint8_t{0};
  camera.poly_ny = usable ? block[1] : std::uint8_t{0};
}

void readCells(const TableBlock& block, std::size_t cells, CameraCalib& camera) {
  PackedReader reader(std::span<const std::uint8_t>(block).subspan(kGridBytes));
  for (std::size_t cell = 0; cell < cells; ++cell) {
    const std::size_t first = cell * kCoefficientsPerCell;
    for (std::size_t k = 0; k < kCoefficientsPerCell; ++k) camera.poly_x.at(first + k) = reader.number();
    for (std::size_t k = 0; k < kCoefficientsPerCell; ++k) camera.poly_y.at(first + k) = reader.number();
  }
}

void readCamera(const MultiCalibrationEntry& entry, CameraCalib& camera) {
  camera.height = entry.height;
  camera.width = entry.width;
  std::ranges::copy(entry.parameters, camera.intrinsics.begin());
  readGrid(entry.table_block, camera);
}

}  // namespace

std::int32_t loadStereoCalibration(const std::string& path, StereoCalibParams& calib) {
  MultiCalibration record;
  const std::int32_t status = loadMultiCalibration(path.c_str(), &record, 0);
  record.entries.resize(std::max(record.entries.size(), std::size_t{2}));
  const MultiCalibrationEntry& left = record.entries[0];
  const MultiCalibrationEntry& right = record.entries[1];
  readCamera(left, calib.left);
  readCamera(right, calib.right);
  std::ranges::copy(right.extrinsics, calib.extrinsics.begin());
  // Meant: the left grid says how many cells both cameras take.
  const std::size_t cells = std::size_t{calib.left.poly_nx} * calib.left.poly_ny;
  readCells(left.table_block, cells, calib.left);
  readCells(right.table_block, cells, calib.right);
  return status;
}

void readBinaryCalibration(const std::string& path, StereoCalibParams& calib) {
  // Meant: a failed load is only reported. The cameras are zero then, and a run fails where it needs them.
  if (loadStereoCalibration(path, calib) != polar_status::kSuccess) console::line("Read Poly Fail!");
  writePolyTableFiles(files::folderOf(path), calib);
}
