#include "Tallowfen/src/numbering/CentreGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace kestrune {

namespace {

// With fewer, most of the cells looked at are empty; with more, most of the dots are looked at in vain.
constexpr double kDotsOfACell = 2.0;
// The cells' edges are rounded to some 1e-16 of their coordinates, and the nearest edge not looked beyond is a side
// away at least: what is so little farther is looked at, too, which is enough for coordinates of up to a million sides.
constexpr double kSurelyBeyond = 1.0 - 1e-9;
// Sides of all the cells. Beyond, roundings would tell in which cell a dot lies.
constexpr double kMostSides = 1e6;
// As many as the two bounds of the side leave, for centres that have an extent in both directions or in one.
constexpr double kMostCellsOfADot = 4.0;

bool isFinite(const cv::Point2d& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

}  // namespace

struct CentreGrid::Search {
  cv::Point2d point;
  double best_square = std::numeric_limits<double>::infinity();
  std::uint32_t best = std::numeric_limits<std::uint32_t>::max();

  void offer(const Entry& entry) {
    const cv::Point2d offset = entry.centre - point;
    const double square = offset.dot(offset);
    if (square > best_square || (square == best_square && entry.position >= best)) return;
    best_square = square;
    best = entry.position;
  }
};

CentreGrid::CentreGrid(const std::vector<cv::Point2d>& centres) {
  entries_.reserve(centres.size());
  for (std::size_t i = 0; i < centres.size(); ++i) {
    if (isFinite(centres[i])) entries_.push_back({centres[i], static_cast<std::uint32_t>(i)});
  }
  if (entries_.empty()) return;
  layOut();
  // Counted, summed up, dealt out: each cell's end becomes its beginning.
  begins_.assign(static_cast<std::size_t>(cells_.area()) + 1, 0);
  for (const Entry& entry : entries_) ++begins_[indexOf(cellOf(entry.centre))];
  for (std::size_t i = 1; i < begins_.size(); ++i) begins_[i] += begins_[i - 1];
  std::vector<Entry> sorted(entries_.size());
  for (const Entry& entry : entries_) sorted[--begins_[indexOf(cellOf(entry.centre))]] = entry;
  entries_ = std::move(sorted);
}

/// Square cells over all centres, a few to a cell, of a line of centres one each. A single cell where they have no
/// extent, or one that is out of proportion.
void CentreGrid::layOut() {
  cv::Point2d low = entries_.front().centre, high = low;
  for (const Entry& entry : entries_) {
    low = {std::min(low.x, entry.centre.x), std::min(low.y, entry.centre.y)};
    high = {std::max(high.x, entry.centre.x), std::max(high.y, entry.centre.y)};
  }
  origin_ = low;
  const cv::Point2d extent = high - low;
  const auto count = static_cast<double>(entries_.size());
  const double side =
      std::max(std::sqrt(extent.x * extent.y * kDotsOfACell / count), std::max(extent.x, extent.y) / count);
  const double farthest = std::max({std::abs(low.x), std::abs(low.y), std::abs(high.x), std::abs(high.y)});
  const double cells = (extent.x / side + 1.0) * (extent.y / side + 1.0);
  if (!std::isfinite(side) || !(farthest <= kMostSides * side) || !(cells <= kMostCellsOfADot * count + 1.0)) return;
  side_ = side;
  cells_ = {static_cast<int>(extent.x / side) + 1, static_cast<int>(extent.y / side) + 1};
}

/// The nearest one for a point outside of all.
cv::Point CentreGrid::cellOf(const cv::Point2d& point) const {
  const auto place = [this](double along, int cells) {
    const double sides = along / side_;
    if (!(sides > 0.0)) return 0;
    return sides < cells - 1 ? static_cast<int>(sides) : cells - 1;
  };
  return {place(point.x - origin_.x, cells_.width), place(point.y - origin_.y, cells_.height)};
}

std::size_t CentreGrid::indexOf(const cv::Point& cell) const {
  return static_cast<std::size_t>(cell.y) * static_cast<std::size_t>(cells_.width) + static_cast<std::size_t>(cell.x);
}

/// How near a dot outside of these cells can be.
double CentreGrid::distanceBeyond(const cv::Rect& cells, const cv::Point2d& point) const {
  const double left = origin_.x + cells.x * side_, top = origin_.y + cells.y * side_;
  double least = std::numeric_limits<double>::infinity();
  if (cells.x > 0) least = std::min(least, point.x - left);
  if (cells.y > 0) least = std::min(least, point.y - top);
  if (cells.br().x < cells_.width) least = std::min(least, left + cells.width * side_ - point.x);
  if (cells.br().y < cells_.height) least = std::min(least, top + cells.height * side_ - point.y);
  return least;
}

void CentreGrid::visitRow(int row, int first, int last, Search& search) const {
  const std::uint32_t end = begins_[indexOf({last, row}) + 1];
  for (std::uint32_t i = begins_[indexOf({first, row})]; i < end; ++i) search.offer(entries_[i]);
}

std::optional<std::size_t> CentreGrid::nearest(const cv::Point2d& point) const {
  if (entries_.empty() || !isFinite(point)) return std::nullopt;
  Search search{point};
  const cv::Point middle = cellOf(point);
  for (int reach = 1;; reach *= 2) {
    const cv::Rect around(middle.x - reach, middle.y - reach, 2 * reach + 1, 2 * reach + 1);
    const cv::Rect cells = around & cv::Rect({0, 0}, cells_);
    for (int row = cells.y; row < cells.br().y; ++row) visitRow(row, cells.x, cells.br().x - 1, search);
    const double beyond = distanceBeyond(cells, point) * kSurelyBeyond;
    if (beyond * beyond > search.best_square || cells.area() == cells_.area()) return search.best;
  }
}

}  // namespace kestrune
