#pragma once

#include <cstdint>
#include <string>

#include "PolarLinePrecision/CalibrationRecords.h"
#include "input/StereoCalibParams.h"

/// The polynomial tables of both cameras as four text files of one folder, a value a line. The files do not tell the
/// grid.

/// Writes all 500 values of each table, whatever the grid, with six significant digits. A file that does not open is
/// left out silently.
void writePolyTableFiles(const std::string& folder, const StereoCalibParams& calib);

/// Reads the tables back into both cameras, always with a grid of 6 by 4 cells and an image of 1920 by 1200 pixels.
/// Prints each path. Values that a file lacks, and lines without a number, are 0. Returns 0, or
/// `polar_status::kInputUnreadable` when one of the files is missing. `out` must not be null.
std::int32_t readPolyTableFiles(const std::string& folder, ExportedCalibParams* out);
