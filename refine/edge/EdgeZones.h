#pragma once

#include <array>
#include <cstddef>

#include "refine/edge/EdgeModel.h"

namespace refine {

/// Columns of a row, all on an edge or all beside it.
struct EdgeRun {
  int first = 0, last = -1;
  bool on_edge = false;
};

/// Where the rows of a picture cross the bands around a mark's edges. A band's borders are ellipses whose half axes are
/// those of the edge and a width more or less, so that no pixel's own distance has to be worked out.
class EdgeZones {
 public:
  static constexpr std::size_t kMostRuns = 6 * EdgeModel::kMostEdges;

  /// `reach` and `on_edge`: half widths of the whole band and of what counts as on the edge, pixels.
  EdgeZones(const EdgeModel& model, double reach, double on_edge);

  int firstRow() const { return first_row_; }
  int lastRow() const { return last_row_; }
  /// The runs of a row, apart from each other, some of them empty; how many.
  std::size_t runsOf(int row, std::array<EdgeRun, kMostRuns>& runs) const;

 private:
  static constexpr std::size_t kBorders = 4;  ///< Of an edge: the band's, the inner part's two, the band's.

  /// An ellipse about the mark's centre, as rows cross it.
  struct Border {
    double lean = 0.0;            ///< Columns by which the middle of a row is shifted, by row.
    double yy = 0.0, flat = 0.0;  ///< Half the extent, squared; of a row at dy, sqrt(flat (yy - dy^2)) columns.
  };
  Border borderOf(const EdgeModel& model, double ratio, double width) const;

  cv::Point2d centre_;
  std::size_t count_;
  std::array<Border, kBorders * EdgeModel::kMostEdges> borders_;
  int first_row_ = 0, last_row_ = -1;
};

}  // namespace refine
