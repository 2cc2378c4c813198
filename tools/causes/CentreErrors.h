#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <opencv2/core/types.hpp>

#include "tools/scene/Random.h"

/// Errors of single dots, nearly normal, the same on every machine.
class OwnErrors {
 public:
  /// `sd`: of each coordinate, pixels.
  OwnErrors(double sd, std::uint64_t seed) : sd_(sd), random_(seed) {}
  cv::Point2d operator()(int row, int column);

 private:
  double sd_;
  scene::Random random_;
};

/// Errors of detected centres: nine neighbours of the board's grid share two thirds of their variance. Asked for the
/// left picture and the right one in turn, for a pair from its first dot on.
class SharedErrors {
 public:
  SharedErrors(double sd, std::uint64_t seed) : sd_(sd), own_(1.0, seed) {}
  cv::Point2d operator()(int row, int column);

 private:
  double sd_;
  OwnErrors own_;
  bool is_left_ = false;
  int last_place_ = -1;
  std::map<std::array<int, 3>, cv::Point2d> shared_;
};
