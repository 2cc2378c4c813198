#pragma once

#include <string>
#include <vector>

namespace boards {

/// Lengths and places on a sheet are millimetres from its upper left corner, x to the right, y down.
struct Disc {
  double x = 0.0;
  double y = 0.0;
  double radius = 0.0;
  bool ink = true;  ///< False: paper again, on what was drawn before.
};

/// An upright rectangle of ink.
struct Bar {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;
};

/// A line of text of clean UTF-8, centred at x, standing on y.
struct Caption {
  double x = 0.0;
  double y = 0.0;
  double size = 0.0;  ///< Of the font.
  std::string text;
};

/// Everything that is printed: discs in their order, then the rest.
struct Sheet {
  std::string title;
  std::string paper;  ///< Name of the paper.
  double width = 0.0;
  double height = 0.0;
  std::vector<Disc> discs;
  std::vector<Bar> bars;  ///< The ruler, its line first, then what joins the letters.
  std::vector<Caption> captions;
};

}  // namespace boards
