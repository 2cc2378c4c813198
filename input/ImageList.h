#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"

/// The names of an image list as they are written.
struct ImageNames {
  std::string folder;  ///< What the names are relative to, with its separator.
  std::size_t cameras = 0;
  std::vector<std::vector<std::string>> rows;  ///< A name per camera; the k-th row is line k + 2 of the list.
  std::string failure;  ///< What ended the reading, with its line end; empty for a list that is right.
};

/// Reads the names of a list and loads nothing. A failure in a content line leaves the rows before it.
ImageNames ReadImageNames(const std::string& path);

/// Reads a list of images and loads them all: a header line of `#` and a name per camera, then a line per pair with a
/// file name per camera, relative to the list's folder and without blanks. Images are kept as decoded; one that cannot
/// be read stays in its place as an empty matrix. What `images` held before is dropped.
///
/// Returns 1, or 0 after a line on the standard error stream. A failure in the header leaves no lists, one in a content
/// line the images of the lines before it. A line of 512 characters or more counts as the end of the file.
std::int32_t ReadImageList(const std::string& path, ImagePairList& images);
