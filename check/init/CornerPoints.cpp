#include "check/init/CornerPoints.h"

#include <algorithm>
#include <vector>

namespace init {
namespace {

/// Nearer the corners the lens bends most, and dots are lost first.
constexpr int kPlacesIn = 2;

CornerIds idsIn(const polarline::BoardDescription& board, int columns_in, int rows_in) {
  const int right = board.cols - 1 - columns_in;
  const int lower = (board.rows - 1 - rows_in) * board.cols;
  const int upper = rows_in * board.cols;
  return {upper + columns_in, upper + right, lower + columns_in, lower + right};
}

/// Every rectangle of two dots a side or more, the largest first.
std::vector<CornerPoints> rectangles(const polarline::BoardDescription& board) {
  std::vector<CornerPoints> all;
  for (int rows_in = std::min(kPlacesIn, (board.rows - 2) / 2); 2 * rows_in < board.rows - 1; ++rows_in) {
    for (int columns_in = std::min(kPlacesIn, (board.cols - 2) / 2); 2 * columns_in < board.cols - 1; ++columns_in) {
      all.push_back({idsIn(board, columns_in, rows_in), columns_in, rows_in, true});
    }
  }
  const auto area = [&](const CornerPoints& points) {
    return (board.cols - 1 - 2 * points.columns_in) * (board.rows - 1 - 2 * points.rows_in);
  };
  std::ranges::stable_sort(all, [&](const auto& a, const auto& b) { return area(a) > area(b); });
  return all;
}

}  // namespace

CornerPoints chooseCorners(const polarline::BoardDescription& board, const std::function<bool(int)>& isSeen) {
  const std::vector<CornerPoints> all = rectangles(board);
  if (all.empty()) return {};
  const auto seen = std::ranges::find_if(all, [&](const auto& each) { return std::ranges::all_of(each.ids, isSeen); });
  if (seen != all.end()) return *seen;
  CornerPoints unseen = all.front();
  unseen.seen = false;
  return unseen;
}

}  // namespace init
