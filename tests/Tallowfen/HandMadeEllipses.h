#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

/// Ellipses written down by hand, for the links of the detection that work on lists.
namespace handmade {

using kestrune::Ellipse;
using List = std::vector<Ellipse>;

inline Ellipse ellipse(double x, double y, double semi_a, std::uint8_t point_class = kestrune::morvenkit::kDot,
                       double sigma = 0.1) {
  Ellipse made;
  made.x = x;
  made.y = y;
  made.semi_a = semi_a;
  made.semi_b = semi_a;
  made.sigma = sigma;
  made.point_class = point_class;
  return made;
}

/// Square grid of dots from the origin.
inline List dotGrid(int side, double pitch, double semi_a) {
  List dots;
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) dots.push_back(ellipse(column * pitch, row * pitch, semi_a));
  }
  return dots;
}

/// Four ellipses at the corners of the square from (100, 100) to (300, 300).
inline List corners(double semi_a, std::uint8_t point_class = kestrune::morvenkit::kRing) {
  return {ellipse(100, 100, semi_a, point_class), ellipse(300, 100, semi_a, point_class),
          ellipse(300, 300, semi_a, point_class), ellipse(100, 300, semi_a, point_class)};
}

inline std::vector<std::pair<double, double>> centres(const List& list) {
  std::vector<std::pair<double, double>> found;
  for (const Ellipse& member : list) found.emplace_back(member.x, member.y);
  return found;
}

inline std::vector<double> sizes(const List& list) {
  std::vector<double> found;
  for (const Ellipse& member : list) found.push_back(member.semi_a);
  return found;
}

inline List joined(List first, const List& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace handmade
