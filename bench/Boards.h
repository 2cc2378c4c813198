#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "tools/scene/Scene.h"

/// A board in a picture: what one row of the bench looks at.
struct BoardPicture {
  scene::BoardKind kind;
  int width, height;  ///< Pixels.
  int rows, cols;     ///< Dots.

  int dots() const { return rows * cols; }
  /// Such as "ring board, 1295 dots, 640 x 512".
  std::string name() const;
  scene::Scene scene() const;
  cv::Mat image() const;
  /// The same board with nothing but plain dots.
  cv::Mat plainGrid() const;
};

/// One board on each scale that the detection works at, with some 600, 1300 and 5200 dots where they are found; for a
/// quick bench the smallest alone. Only those whose names hold a text.
std::vector<BoardPicture> boardPictures(bool quick, const std::string& only);
