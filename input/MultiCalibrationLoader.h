#pragma once

#include <cstdint>

#include "PolarLinePrecision/CalibrationRecords.h"

/// Reads a binary calibration file. The record is filled on success only; otherwise it stays as it was.
///
/// Two forms of the file are read: the main form (first two bytes non-zero) and the tabled one (first byte zero, 21091
/// bytes). A file of an unusual size prints a warning and is read all the same. Returns 0,
/// `polar_status::kNullArgument`, `kNotSupported` (options other than 0, another form, or a file that ends inside its
/// entries), `kCrcMismatch`, or the C library's `errno` when the file does not open.
std::int32_t loadMultiCalibration(const char* path, MultiCalibration* record, std::int32_t options);
