#include "Tallowfen/src/numbering/CentreTree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace kestrune {

namespace {

bool isFinite(const cv::Point2d& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

}  // namespace

struct CentreTree::Search {
  cv::Point2d point;
  double best_square = std::numeric_limits<double>::infinity();
  std::uint32_t best = 0;

  void offer(std::uint32_t position, const cv::Point2d& centre) {
    const cv::Point2d offset = centre - point;
    const double square = offset.dot(offset);
    if (square > best_square || (square == best_square && position >= best)) return;
    best_square = square;
    best = position;
  }
};

CentreTree::CentreTree(std::vector<cv::Point2d> centres) : centres_(std::move(centres)) {
  order_.reserve(centres_.size());
  for (std::size_t i = 0; i < centres_.size(); ++i) {
    if (isFinite(centres_[i])) order_.push_back(static_cast<std::uint32_t>(i));
  }
  split(order_.begin(), order_.end(), true);
}

void CentreTree::split(Iterator begin, Iterator end, bool by_x) {
  if (end - begin < 2) return;
  const auto middle = begin + (end - begin) / 2;
  std::nth_element(begin, middle, end, [&](std::uint32_t a, std::uint32_t b) {
    return by_x ? centres_[a].x < centres_[b].x : centres_[a].y < centres_[b].y;
  });
  split(begin, middle, !by_x);
  split(middle + 1, end, !by_x);
}

std::optional<std::size_t> CentreTree::nearest(const cv::Point2d& point) const {
  if (order_.empty() || !isFinite(point)) return std::nullopt;
  Search search{point};
  search.best = order_.front();
  visit(0, order_.size(), true, search);
  return search.best;
}

void CentreTree::visit(std::size_t begin, std::size_t end, bool by_x, Search& search) const {
  if (begin >= end) return;
  const std::size_t middle = begin + (end - begin) / 2;
  const cv::Point2d& centre = centres_[order_[middle]];
  search.offer(order_[middle], centre);
  const double across = by_x ? search.point.x - centre.x : search.point.y - centre.y;
  const bool low_side_first = across < 0;
  const auto descend = [&](bool low) {
    low ? visit(begin, middle, !by_x, search) : visit(middle + 1, end, !by_x, search);
  };
  descend(low_side_first);
  if (across * across <= search.best_square) descend(!low_side_first);
}

}  // namespace kestrune
