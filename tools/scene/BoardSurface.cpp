#include "tools/scene/BoardSurface.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace scene {
namespace {

/// A cell knows the ink within this share of a step around each of its points. Wider questions are answered with "not
/// uniform".
constexpr double kKnownReach = 0.5;

/// Cell of the nearest grid place, counted from one place before the first. Also what is not a number has a cell.
int nearestPlace(double position, double step, int count) {
  const double place = position / step + 1.5;
  return place > 0.0 ? static_cast<int>(std::min(place, count + 1.0)) : 0;
}

/// A fixed pseudo-random height in [-1, 1] for each lattice point.
double latticeHeight(std::int64_t x, std::int64_t y) {
  std::uint64_t h =
      static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15u ^ static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4Fu;
  h ^= h >> 29;
  h *= 0xBF58476D1CE4E5B9u;
  h ^= h >> 32;
  return static_cast<double>(h & 0xFFFFu) / 32767.5 - 1.0;
}

double softHeight(double x, double y) {
  const double x0 = std::floor(std::clamp(x, -1e6, 1e6));
  const double y0 = std::floor(std::clamp(y, -1e6, 1e6));
  const double a = std::clamp(x - x0, 0.0, 1.0);
  const double b = std::clamp(y - y0, 0.0, 1.0);
  const auto i = static_cast<std::int64_t>(x0);
  const auto j = static_cast<std::int64_t>(y0);
  const double upper = latticeHeight(i, j) * (1.0 - a) + latticeHeight(i + 1, j) * a;
  const double lower = latticeHeight(i, j + 1) * (1.0 - a) + latticeHeight(i + 1, j + 1) * a;
  return upper * (1.0 - b) + lower * b;
}

}  // namespace

BoardSurface::BoardSurface(const Board& board, const Optics& optics)
    : optics_(optics),
      step_x_(board.step),
      step_y_(rowStep(board)),
      cells_x_(board.cols),
      cells_y_(board.rows),
      paper_low_{-board.margin * board.step, -board.margin * rowStep(board)},
      paper_high_{(board.cols - 1 + board.margin) * board.step, (board.rows - 1 + board.margin) * rowStep(board)},
      cells_(static_cast<std::size_t>(board.cols + 2) * static_cast<std::size_t>(board.rows + 2)) {
  for (const Mark& mark : marksOf(board)) {
    if (!mark.drawn) continue;
    const Point3 centre = gridPoint(board, mark.column, mark.row);
    enter({{centre.x, centre.y}, mark.radii.outer * step_x_, mark.radii.hollow * step_x_, mark.radii.core * step_x_});
  }
}

void BoardSurface::enter(const Ink& ink) {
  const double reach_x = ink.outer + kKnownReach * step_x_;
  const double reach_y = ink.outer + kKnownReach * step_y_;
  const int last_row = nearestPlace(ink.centre.y + reach_y, step_y_, cells_y_);
  const int last_column = nearestPlace(ink.centre.x + reach_x, step_x_, cells_x_);
  for (int row = nearestPlace(ink.centre.y - reach_y, step_y_, cells_y_); row <= last_row; ++row) {
    for (int column = nearestPlace(ink.centre.x - reach_x, step_x_, cells_x_); column <= last_column; ++column) {
      cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(cells_x_ + 2) + static_cast<std::size_t>(column)]
          .push_back(ink);
    }
  }
}

const BoardSurface::Inks& BoardSurface::inksNear(Point2 point_board) const {
  const auto row = static_cast<std::size_t>(nearestPlace(point_board.y, step_y_, cells_y_));
  const auto column = static_cast<std::size_t>(nearestPlace(point_board.x, step_x_, cells_x_));
  return cells_[row * static_cast<std::size_t>(cells_x_ + 2) + column];
}

double BoardSurface::distanceInsidePaper(Point2 p) const {
  return std::min(std::min(p.x - paper_low_.x, paper_high_.x - p.x), std::min(p.y - paper_low_.y, paper_high_.y - p.y));
}

double BoardSurface::surroundAt(Point2 p) const {
  if (optics_.texture == 0.0) return optics_.surround;
  return optics_.surround + optics_.texture * softHeight(p.x / (3.0 * step_x_), p.y / (3.0 * step_y_));
}

double BoardSurface::greyAmong(const Inks& inks, Point2 point_board) const {
  if (distanceInsidePaper(point_board) < 0.0) return surroundAt(point_board);
  for (const Ink& ink : inks) {
    const double x = point_board.x - ink.centre.x;
    const double y = point_board.y - ink.centre.y;
    const double squared = x * x + y * y;
    if (squared < ink.core * ink.core || (squared < ink.outer * ink.outer && squared >= ink.hollow * ink.hollow))
      return optics_.ink;
  }
  return optics_.paper;
}

bool BoardSurface::uniformWithin(Point2 point_board, double reach) const {
  const double inside = distanceInsidePaper(point_board);
  if (inside < -reach) return true;
  if (inside <= reach || reach > kKnownReach * std::min(step_x_, step_y_)) return false;
  for (const Ink& ink : inksNear(point_board)) {
    const double distance = norm(point_board - ink.centre);
    for (const double edge : {ink.outer, ink.hollow, ink.core}) {
      if (edge > 0.0 && std::abs(distance - edge) <= reach) return false;
    }
  }
  return true;
}

}  // namespace scene
