#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/numbering/ModelCoordinates.h"

namespace kestrune {

/// Which ellipses, by their position in the list, stand in which cell of the board, of `kGridStep` model units a side.
class CellMap {
 public:
  /// Row * columns + column. Meant: a column beyond the board's edge is one of the next or the former row.
  using Cell = std::int64_t;

  CellMap(int cols, const std::vector<cv::Point>& grid) : cols_(cols) {
    for (std::size_t i = 0; i < grid.size(); ++i) add(cellOf(grid[i].x, grid[i].y), i);
  }

  /// Meant: the division cuts toward zero, so that the cells around zero are twice as wide.
  Cell cellOf(int x, int y) const { return static_cast<Cell>(y / kGridStep) * cols_ + x / kGridStep; }
  Cell cols() const { return cols_; }

  void add(Cell cell, std::size_t position) { positions_.emplace(cell, position); }
  std::size_t count(Cell cell) const { return positions_.count(cell); }
  /// Of a cell that holds one or more.
  std::size_t first(Cell cell) const { return positions_.lower_bound(cell)->second; }
  std::vector<std::size_t> allOf(Cell cell) const {
    const auto [begin, end] = positions_.equal_range(cell);
    std::vector<std::size_t> positions;
    for (auto entry = begin; entry != end; ++entry) positions.push_back(entry->second);
    return positions;
  }
  void keepOnly(Cell cell, std::size_t position) {
    positions_.erase(cell);
    add(cell, position);
  }

 private:
  Cell cols_;
  std::multimap<Cell, std::size_t> positions_;
};

}  // namespace kestrune
