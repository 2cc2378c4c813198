#pragma once

#include "polarline/detect.h"

/// A found detection of a square grid, written down by hand: dot (row, column) at (20 + pitch column, 30 + pitch row).
inline polarline::Detection gridDetection(int rows, int columns, double pitch) {
  polarline::Detection detection;
  detection.found = true;
  detection.step = "done";
  detection.text = "all";
  detection.board = {3, rows, columns, 10.0, 10.0};
  detection.size = {640, 480};
  detection.working_size = {1280, 960};
  detection.dot_radius = 0.3 * pitch;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const double x = 20 + pitch * column, y = 30 + pitch * row;
      detection.dots.push_back({row * columns + column, row, column, x, y});
      detection.ellipses.push_back({x, y, 0.3 * pitch, 0.3 * pitch, 0.0, "dot", false});
    }
  }
  return detection;
}

/// Takes a dot away: it is missing, and its ellipse is gone.
inline void drop(polarline::Detection& detection, int id) {
  detection.dots.erase(detection.dots.begin() + id);
  detection.ellipses.erase(detection.ellipses.begin() + id);
  detection.missing.push_back(id);
}
