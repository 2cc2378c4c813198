#pragma once

#include <Eigen/Core>
#include <limits>
#include <vector>

/// What noise does to the dots of a pair in one drawn repetition, a column a dot.
struct Repetition {
  Eigen::Matrix4Xd pixels;     ///< Left x, y, right x, y.
  Eigen::Matrix3Xd positions;  ///< Of the triangulated points, board unit.
};

/// A figure and what it would be in each repetition.
struct RepeatedFigure {
  const char* name = "";
  double seen = 0.0;  ///< Of the pair.
  double step = 0.0;  ///< The least by which it can differ; 0 for one that runs on smoothly.
  std::vector<double> values;
  double most = std::numeric_limits<double>::infinity();  ///< What it can't be above.
};

/// Figures that follow from the same dots.
class FigureRepeater {
 public:
  FigureRepeater() = default;
  FigureRepeater(const FigureRepeater&) = delete;
  FigureRepeater& operator=(const FigureRepeater&) = delete;
  virtual ~FigureRepeater() = default;

  /// Adds one value to each figure.
  virtual void add(const Repetition& repetition) = 0;

  std::vector<RepeatedFigure> figures;
};
