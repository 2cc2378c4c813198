#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

namespace kestrune {

/// Balanced two-dimensional tree over the centres of dots, split at the median of x and y in turn, for exact nearest
/// neighbours (Bentley 1975).
class CentreTree {
 public:
  /// Centres that are not finite are never found.
  explicit CentreTree(std::vector<cv::Point2d> centres);

  /// Position in the list of the centre nearest to `point`, the lower one of two at the same distance. Nothing in an
  /// empty tree, or for a point that is not finite.
  std::optional<std::size_t> nearest(const cv::Point2d& point) const;

 private:
  struct Search;
  using Iterator = std::vector<std::uint32_t>::iterator;
  void split(Iterator begin, Iterator end, bool by_x);
  void visit(std::size_t begin, std::size_t end, bool by_x, Search& search) const;

  std::vector<cv::Point2d> centres_;
  std::vector<std::uint32_t> order_;  ///< Positions in the list; the middle of each range is the root of its tree.
};

}  // namespace kestrune
