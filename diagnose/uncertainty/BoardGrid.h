#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// Where the dots of a list stand on the board, by their ids.
class BoardGrid {
 public:
  /// `columns` of the board, at least 1; ids are row * columns + column, none below 0.
  BoardGrid(const std::vector<std::int32_t>& ids, int columns);

  int rows() const { return rows_; }  ///< Down to the last one that has a dot.
  int columns() const { return columns_; }
  std::size_t count() const { return rows_of_.size(); }
  int row(std::size_t dot) const { return rows_of_[dot]; }
  int column(std::size_t dot) const { return columns_of_[dot]; }
  /// The dot at a place; none for an empty one and beside the board.
  std::optional<std::size_t> at(int row, int column) const {
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_) return std::nullopt;
    const std::int64_t dot =
        dots_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column)];
    return dot < 0 ? std::nullopt : std::optional<std::size_t>(static_cast<std::size_t>(dot));
  }

 private:
  int columns_ = 1;
  int rows_ = 0;
  std::vector<int> rows_of_, columns_of_;
  std::vector<std::int64_t> dots_;  ///< By place; -1: none.
};
