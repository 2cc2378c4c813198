#include "check/picture/BoardExtent.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace polarline {
namespace {

using Points = std::vector<cv::Point2d>;

/// The next dot of a row stands where the last two point to, but for the perspective and the lens: in steps.
constexpr double kNear = 0.35;

/// Dots beyond the last of two neighbours, in their direction.
int dotsBeyond(const Points& dots, cv::Point2d before, cv::Point2d last) {
  for (int count = 0;; ++count) {
    const cv::Point2d step = last - before;
    const cv::Point2d place = last + step;
    const double reach = kNear * cv::norm(step);
    const auto next = std::ranges::find_if(dots, [&](const cv::Point2d& dot) { return cv::norm(dot - place) < reach; });
    if (next == dots.end() || count == static_cast<int>(dots.size())) return count;
    before = std::exchange(last, *next);
  }
}

/// Of lines of dots the length that most have, the longer one of two.
class Lengths {
 public:
  void add(const Points& dots, const cv::Point2d& first, const cv::Point2d& second) {
    ++counts_[2 + dotsBeyond(dots, first, second) + dotsBeyond(dots, second, first)];
  }
  int usual() const {
    int length = 0;
    int count = 0;
    for (const auto& [each, times] : counts_) {
      if (times < count) continue;
      length = each;
      count = times;
    }
    return length;
  }

 private:
  std::map<int, int> counts_;
};

using Numbered = std::map<int, cv::Point2d>;

Numbered numbered(const Detection& detection) {
  Numbered dots;
  for (const Dot& dot : detection.dots) dots.emplace(dot.id, cv::Point2d(dot.x, dot.y));
  return dots;
}

Points allDots(const Detection& detection) {
  Points dots;
  for (const SeenEllipse& ellipse : detection.ellipses) dots.emplace_back(ellipse.x, ellipse.y);
  return dots;
}

bool isWhole(const DetectedBoard& described, const BoardExtent& seen, const Numbered& dots) {
  if (dots.size() != static_cast<std::size_t>(seen.columns) * static_cast<std::size_t>(seen.rows)) return false;
  return dots.begin()->first + dots.rbegin()->first == described.columns * described.rows - 1;
}

}  // namespace

std::optional<ShownBoard> shownBoard(const Detection& detection) {
  const int columns = detection.board.columns;
  const Numbered dots = numbered(detection);
  const Points all = allDots(detection);
  Lengths rows;
  Lengths cols;
  for (const auto& [id, dot] : dots) {
    const auto beside = dots.find(id + 1);
    const auto below = dots.find(id + columns);
    if (id % columns == (columns - 1) / 2 && beside != dots.end()) rows.add(all, dot, beside->second);
    if (id / columns == (detection.board.rows - 1) / 2 && below != dots.end()) cols.add(all, dot, below->second);
  }
  const BoardExtent extent = {rows.usual(), cols.usual()};
  if (extent.columns == 0 || extent.rows == 0) return std::nullopt;
  return ShownBoard{extent, isWhole(detection.board, extent, dots)};
}

std::string sizeProblem(const Detection& left, const Detection& right) {
  const BoardExtent described = {left.board.columns, left.board.rows};
  const auto seen = shownBoard(left);
  const auto other = shownBoard(right);
  if (!seen || !other || seen->extent != other->extent || seen->extent == described) return {};
  const auto& [columns, rows] = seen->extent;
  const bool is_exchanged = seen->extent == BoardExtent{described.rows, described.columns};
  const bool is_larger = columns > described.columns || rows > described.rows;
  if (!is_exchanged && !is_larger && !(seen->is_whole && other->is_whole)) return {};
  return fmt::format("Both pictures show {} columns and {} rows of dots, and the board is described with {} and {}{}",
                     columns, rows, described.columns, described.rows,
                     is_exchanged ? ": columns and rows are exchanged" : "");
}

std::string sizeProblem(const cv::Mat& left, const cv::Mat& right, const std::string& target) {
  return sizeProblem(detect(left, target), detect(right, target));
}

}  // namespace polarline
