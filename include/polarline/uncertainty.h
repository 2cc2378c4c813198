#pragma once

#include <string>

namespace polarline {

/// How certain a figure of one pair is: how it would scatter if the same scene were pictured again and again, with
/// other noise. What the cameras, the calibration and the detection do wrong each time alike is no part of it. From
/// the noise that the picture shows (Foi, Trimeche, Katkovnik and Egiazarian 2008) by a bootstrap over blocks of
/// neighbours (Kuensch 1989), as a basic interval (Davison and Hinkley 1997). docs/how_it_measures/uncertainty.md.
struct FigureUncertainty {
  std::string name;    ///< Of the figure.
  double sd = 0.0;     ///< Standard error, in the figure's unit.
  double low95 = 0.0;  ///< Where 95 of 100 such intervals hold the figure's mean over the repetitions.
  double high95 = 0.0;
};

}  // namespace polarline
