#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

namespace kestrune {

/// The centres of dots by the square cells that they lie in, for exact nearest neighbours (Bentley and Friedman 1979).
/// A few dots lie in each cell, as dots are spread over a picture.
class CentreGrid {
 public:
  /// Centres that are not finite are never found.
  explicit CentreGrid(const std::vector<cv::Point2d>& centres);

  /// Position in the list of the centre nearest to `point`, the lower one of two at the same distance. Nothing without
  /// centres, or for a point that is not finite.
  std::optional<std::size_t> nearest(const cv::Point2d& point) const;

 private:
  struct Entry {
    cv::Point2d centre;
    std::uint32_t position;  ///< In the list.
  };
  struct Search;

  void layOut();
  cv::Point cellOf(const cv::Point2d& point) const;
  std::size_t indexOf(const cv::Point& cell) const;
  double distanceBeyond(const cv::Rect& cells, const cv::Point2d& point) const;
  void visitRow(int row, int first, int last, Search& search) const;

  cv::Point2d origin_;
  double side_ = 1.0;                  ///< Of a cell, pixels.
  cv::Size cells_{1, 1};               ///< Along x and y.
  std::vector<Entry> entries_;         ///< Cell by cell, row by row.
  std::vector<std::uint32_t> begins_;  ///< Of each cell's entries, and the end of the last one's.
};

}  // namespace kestrune
