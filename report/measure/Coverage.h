#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace polarline {

/// How many dots of all pairs lie in each cell of the picture.
class Coverage {
 public:
  /// About square cells over a picture of that size; none for an empty picture.
  explicit Coverage(const cv::Size& picture);

  void add(const std::vector<double>& x, const std::vector<double>& y);

  int columns() const { return columns_; }
  int rows() const { return rows_; }
  const std::vector<int>& dots() const { return dots_; }  ///< Row by row.
  /// Cells with a dot, of all; 0 without cells.
  double share() const;

 private:
  cv::Size picture_;
  int columns_ = 0, rows_ = 0;
  std::vector<int> dots_;
};

}  // namespace polarline
