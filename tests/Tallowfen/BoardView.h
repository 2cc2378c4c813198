#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <opencv2/core.hpp>
#include <set>
#include <utility>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"

/// A board of dots seen through a mapping of (column, row) to pixels, as the list of ellipses that a perfect detector
/// would give.
class BoardView {
 public:
  using Camera = std::function<cv::Point2d(double column, double row)>;
  using Cell = std::pair<int, int>;  ///< Column, row.

  BoardView(int rows, int cols, Camera camera, const std::set<Cell>& hidden = {})
      : cols_(cols), camera_(std::move(camera)) {
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < cols; ++column) {
        places_.push_back({camera_(column, row), pitchAt(column, row)});
        if (!hidden.contains({column, row})) add(column, row);
      }
    }
  }

  /// Ellipse of a dot in the middle of the place, with a radius of 0.3 pitches.
  kestrune::Ellipse dotAt(double column, double row) const {
    kestrune::Ellipse ellipse;
    const cv::Point2d centre = camera_(column, row);
    ellipse.x = centre.x;
    ellipse.y = centre.y;
    ellipse.semi_a = ellipse.semi_b = 0.3 * pitchAt(column, row);
    ellipse.sigma = 0.1;
    ellipse.point_class = kestrune::morvenkit::kDot;
    return ellipse;
  }

  double pitchAt(double column, double row) const {
    return cv::norm(camera_(column + 0.5, row) - camera_(column - 0.5, row));
  }

  std::size_t position(int column, int row) const { return positions_.at({column, row}); }
  kestrune::Ellipse& at(int column, int row) { return all[position(column, row)]; }

  /// Positions of a 3 x 3 block, row by row, its middle dot numbered.
  std::vector<std::int32_t> seedsAround(int column, int row) {
    at(column, row).id = row * cols_ + column;
    std::vector<std::int32_t> seeds;
    for (int r = row - 1; r <= row + 1; ++r) {
      for (int c = column - 1; c <= column + 1; ++c) seeds.push_back(static_cast<std::int32_t>(position(c, r)));
    }
    return seeds;
  }

  /// The true id of the dot nearest to a point, or -1 when none is within a quarter of a pitch.
  int trueId(const kestrune::CtrlPoint& point) const {
    for (std::size_t id = 0; id < places_.size(); ++id) {
      const cv::Point2d offset = places_[id].centre - cv::Point2d(point.x, point.y);
      if (cv::norm(offset) < 0.25 * places_[id].pitch) return static_cast<int>(id);
    }
    return -1;
  }

  std::vector<kestrune::Ellipse> all;

 private:
  void add(int column, int row) {
    positions_[{column, row}] = all.size();
    all.push_back(dotAt(column, row));
  }

  struct Place {
    cv::Point2d centre;
    double pitch;
  };

  int cols_;
  Camera camera_;
  std::vector<Place> places_;  ///< Of every dot, hidden or not, by id.
  std::map<Cell, std::size_t> positions_;
};

/// A camera straight above the board, rolled by quarter turns, with a mild perspective.
inline BoardView::Camera tiltedCamera(double pitch, int quarter_turns, double tilt = 0) {
  static constexpr double kCos[] = {1, 0, -1, 0};
  static constexpr double kSin[] = {0, 1, 0, -1};
  const double c = kCos[quarter_turns], s = kSin[quarter_turns];
  return [=](double column, double row) {
    const double x = c * column - s * row, y = s * column + c * row;
    const double depth = 1 + tilt * (0.7 * x - 0.4 * y);
    return cv::Point2d(1000 + pitch * x / depth, 800 + pitch * y / depth);
  };
}

/// A wide lens above the given middle: radii shrink to the outside as in an equidistant lens of the given focal length,
/// in pitches.
inline BoardView::Camera curvedCamera(double pitch, double middle_column, double middle_row, double focal) {
  return [=](double column, double row) {
    const double x = column - middle_column, y = row - middle_row;
    const double radius = std::hypot(x, y);
    const double shrink = radius == 0 ? 1 : focal * std::atan(radius / focal) / radius;
    return cv::Point2d(1000 + pitch * shrink * x, 800 + pitch * shrink * y);
  };
}

/// The 35 x 37 board on which all marker examples stand.
inline kestrune::RingTargetConfig exampleBoard() {
  kestrune::RingTargetConfig config;
  config.rows = 35;
  config.cols = 37;
  config.inner_width = 9;
  config.inner_height = 7;
  config.outter_width = 17;
  config.outter_height = 13;
  config.step = 20;
  config.step_y = 20;
  return config;
}

/// The same size with big dots at (16,19) (20,19) (20,15) (17,15).
inline kestrune::RingTargetConfig exampleBigDotBoard() {
  kestrune::RingTargetConfig config = exampleBoard();
  config.board_type = 3;
  config.inner_width = 5;
  config.inner_height = 5;
  return config;
}
