#pragma once

/// @file
/// The exported functions of PolarLinePrecision and the records that cross its boundary.
///
/// The names are undecorated, the content is C++: a caller is built against the same standard library and OpenCV.
/// Each call stands alone; only the text of the last failure survives it. Two calls may not overlap. Exceptions of OpenCV and of the standard
/// library pass through to the caller. Paths are narrow strings; "\\" and, where the system has it, "/" separate folders, so that on such
/// a system a file whose name holds a backslash cannot be reached.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "PolarLinePrecision/ResultRecords.h"
#include "PolarLinePrecision/Status.h"

#if defined(_WIN32)
#if defined(PolarLinePrecision_EXPORTS)
#define POLARLINEPRECISION_API __declspec(dllexport)
#else
#define POLARLINEPRECISION_API __declspec(dllimport)
#endif
#else
#define POLARLINEPRECISION_API __attribute__((visibility("default")))
#endif

/// Told the percentage of work done, 0 to 100, on the caller's thread; false stops the run with status 35.
using ProgressCallback = std::function<bool(float)>;

extern "C" {
// EXPORTS
}
