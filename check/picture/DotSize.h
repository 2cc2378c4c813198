#pragma once

#include <vector>

#include "check/picture/SeenPicture.h"
#include "polarline/detect.h"

/// Radii of dots that are found in pictures of one width, pixels of the picture.
struct DotRange {
  double least = 0.0;
  double most = 0.0;
};

/// Of a board as the detector is configured for it, in pictures of this width. The limits follow from the outlines that
/// the detector takes, told in their pixels at the scale of the search (a circle has 4 sqrt(2) for each pixel of its
/// radius), and for ring boards from the dots that count beside a marker. Empty where no size is found: ring boards in
/// pictures that are searched as they are.
DotRange dotRangeOf(const kestrune::RingTargetConfig& config, int width);
inline DotRange dotRangeOf(const SeenPicture& seen) { return dotRangeOf(seen.config, seen.size.width); }

/// Median semi-axis of the ellipses, pixels: of those numbered, or, with none numbered, of the dots, or else of all.
/// The median is weighted by size, as specks can outnumber the dots. 0 without ellipses.
double medianDotRadius(const kestrune::RingTarget& target);
/// Of a detection that numbered nothing.
double medianDotRadius(const kestrune::DetectionTrace& trace);

/// Warns of dots near the ends of the range or beyond.
void warnOfDotSize(const SeenPicture& seen, std::vector<polarline::Warning>& warnings);
