#include "diagnose/uncertainty/BoardGrid.h"

#include <algorithm>

BoardGrid::BoardGrid(const std::vector<std::int32_t>& ids, int columns) : columns_(columns) {
  for (const std::int32_t id : ids) {
    rows_of_.push_back(id / columns);
    columns_of_.push_back(id % columns);
    rows_ = std::max(rows_, rows_of_.back() + 1);
  }
  dots_.assign(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns), -1);
  for (std::size_t dot = 0; dot < ids.size(); ++dot) {
    dots_[static_cast<std::size_t>(ids[dot])] = static_cast<std::int64_t>(dot);
  }
}
