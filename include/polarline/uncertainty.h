#pragma once

#include <string>

namespace polarline {

/// How certain a figure of one pair is: how it would scatter if the same scene were pictured again and again, with
/// other noise. What the cameras, the calibration and the detection do wrong each time alike is no part of it.
struct FigureUncertainty {
  std::string name;    ///< Of the figure.
  double sd = 0.0;     ///< Standard error, in the figure's unit.
  double low95 = 0.0;  ///< Where 95 of 100 such intervals hold the figure's mean over the repetitions.
  double high95 = 0.0;
};

}  // namespace polarline
