#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <string>

#include "Tallowfen/src/RingTarget.h"

/// What is known of one detection when it has ended: the words, the stages and the warnings are made of it.
struct SeenPicture {
  const kestrune::RingTargetConfig& config;
  const kestrune::DetectionTrace& trace;
  cv::Size size;            ///< Of the picture.
  int type = CV_8UC1;       ///< Of its pixels, as they are stored.
  std::string exception{};  ///< OpenCV's words where it ended a step; empty otherwise.
  double dot_radius = 0.0;  ///< Median, pixels of the picture; 0 without dots.
  std::size_t places = 0;   ///< Places of the board that a dot was numbered for.
  bool big_rings = false;   ///< The four rings are those of the outer rectangle.
};

inline bool isBigDotBoard(const SeenPicture& seen) { return seen.config.board_type == kestrune::kBigDotBoard; }

/// Whether the picture is searched for circles, as it is, instead of at another scale.
inline bool isSearchedAsItIs(const SeenPicture& seen) { return seen.trace.working_size == seen.size; }

/// Pixels of the picture for each pixel that is searched; 1 before the search.
inline double pixelsPerSearched(const SeenPicture& seen) {
  const int width = seen.trace.working_size.width;
  return width > 0 ? static_cast<double>(seen.size.width) / width : 1.0;
}
