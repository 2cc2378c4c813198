#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
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
    entries_.reserve(grid.size());
    for (std::size_t i = 0; i < grid.size(); ++i) add(cellOf(grid[i].x, grid[i].y), i);
  }

  /// Meant: the division cuts toward zero, so that the cells around zero are twice as wide.
  Cell cellOf(int x, int y) const { return static_cast<Cell>(y / kGridStep) * cols_ + x / kGridStep; }
  Cell cols() const { return cols_; }

  void add(Cell cell, std::size_t position) { entries_.push_back({cell, position}); }
  std::size_t count(Cell cell) const {
    return static_cast<std::size_t>(std::ranges::count(entries_, cell, &Entry::cell));
  }
  /// Of a cell that holds one or more.
  std::size_t first(Cell cell) const { return std::ranges::find(entries_, cell, &Entry::cell)->position; }
  std::vector<std::size_t> allOf(Cell cell) const {
    std::vector<std::size_t> positions;
    for (const Entry& entry : entries_) {
      if (entry.cell == cell) positions.push_back(entry.position);
    }
    return positions;
  }
  void keepOnly(Cell cell, std::size_t position) {
    std::erase_if(entries_, [cell](const Entry& entry) { return entry.cell == cell; });
    add(cell, position);
  }

 private:
  struct Entry {
    Cell cell;
    std::size_t position;
  };

  Cell cols_;
  std::vector<Entry> entries_;  ///< As they came: a few cells around the markers are asked for, no order pays.
};

}  // namespace kestrune
