#pragma once

#include <cstdint>
#include <string>

#include "PolarLinePrecision/BoardRecords.h"

/// Reads a list of images and loads them all: a header line of `#` and a name per camera, then a line per pair with a
/// file name per camera, relative to the list's folder and without blanks. Images are kept as decoded; one that cannot
/// be read stays in its place as an empty matrix. What `images` held before is dropped.
///
/// Returns 1, or 0 after a line on the standard error stream. A failure in the header leaves no lists, one in a content
/// line the images of the lines before it. A line of 512 characters or more counts as the end of the file.
std::int32_t ReadImageList(const std::string& path, ImagePairList& images);
