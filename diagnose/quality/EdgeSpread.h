#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "diagnose/quality/DotLook.h"

namespace diagnose {

/// How wide edges are, by direction: standard deviations, pixels.
struct EdgeWidths {
  double mean = 0.0;
  double along = 0.0, across = 0.0;  ///< Where widest, and at right angles to it.
  double direction = 0.0;            ///< Of `along`: degrees from the rows, clockwise as seen, 0 to 180.
};

/// The rise of the grey over the edges of many dots. Pixels lie at many places of an edge, so together they sample it
/// finer than a pixel, as those along a slanted straight edge do (Reichenbach, Park and Narayanswamy 1991); no dot is
/// interpolated. That dots take the slanted edge's place is ours, as a set has these, and in all directions.
class EdgeSpread {
 public:
  /// Adds a dot whose edge lies at `radius` on the board, column steps.
  void add(const DotLook& dot);
  /// The blur as a Gaussian: the line through the probits of the rise (Bliss 1934), its middle only, as the levels of
  /// dot and ground err. None where edges are too near each other to show it.
  std::optional<EdgeWidths> widths() const;

 private:
  static constexpr std::size_t kSectors = 8;
  static constexpr std::size_t kBins = 64;
  struct Bin {
    double sum = 0.0;
    double count = 0.0;
  };
  using Sector = std::array<Bin, kBins>;
  static std::optional<double> widthOf(const Sector& sector);

  std::array<Sector, kSectors> sectors_{};
};

}  // namespace diagnose
