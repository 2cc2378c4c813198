#pragma once

#include <string>

#include "PolarLinePrecision/BoardRecords.h"

/// Reads a CSV report of 42 board points, in either of its two layouts. Only the eleventh line counts; its fields give
/// x and y of a point each, z is 0. Points that the layout has no fields for, and fields that are missing or hold no
/// number, are 0. The list is emptied first.
void ReadBoardCsvLayoutA(const std::string& path, BoardGroundTruth& points);
void ReadBoardCsvLayoutB(const std::string& path, BoardGroundTruth& points);

/// Appends the points of a text list, a line of x, y and z a point; what cannot be read is 0. A file that does not open
/// adds nothing.
void ReadBoardTxt(const std::string& path, BoardGroundTruth& points);
