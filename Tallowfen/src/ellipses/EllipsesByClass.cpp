#include "Tallowfen/src/ellipses/EllipsesByClass.h"

namespace kestrune {
namespace {

/// Whether a coordinate, cut to an integer, lies in [0, size). False for NaN.
bool cutsInto(double coordinate, int size) { return coordinate > -1.0 && coordinate < size; }

bool isMaskedOut(const Ellipse& ellipse, const cv::Mat& mask) {
  if (mask.empty()) return false;
  const double row = ellipse.y + 0.5;
  const double column = ellipse.x + 0.5;
  if (!cutsInto(row, mask.rows) || !cutsInto(column, mask.cols)) return true;
  return mask.at<std::uint8_t>(static_cast<int>(row), static_cast<int>(column)) == 0;
}

std::vector<Ellipse>* listOf(EllipsesByClass& lists, std::uint8_t point_class) {
  switch (point_class) {
    case morvenkit::kDot:
      return &lists.dots;
    case morvenkit::kRing:
      return &lists.rings;
    case morvenkit::kSolidRing:
      return &lists.solids;
    case morvenkit::kBigDot:
      return &lists.bigs;
    case morvenkit::kUnknown:
      return &lists.unknowns;
    default:
      return nullptr;
  }
}

}  // namespace

EllipsesByClass sortByClass(const std::vector<Ellipse>& ellipses, const cv::Mat& mask) {
  EllipsesByClass lists;
  lists.dots.reserve(ellipses.size());  // Markers are few.
  for (const Ellipse& ellipse : ellipses) {
    if (isMaskedOut(ellipse, mask)) continue;
    if (auto* list = listOf(lists, ellipse.point_class)) list->push_back(ellipse);
  }
  return lists;
}

}  // namespace kestrune
