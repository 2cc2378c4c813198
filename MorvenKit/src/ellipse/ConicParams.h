#pragma once

#include <array>

#include "MorvenKit/Ellipse.h"
#include "MorvenKit/MeanStd.h"

namespace kestrune::morvenkit {

/// c0 ... c4 of the conic u^2 + c0 u v + c1 v^2 + c2 u + c3 v + c4 = 0.
using ConicCoefficients = std::array<double, 5>;

/// Takes a conic of normalised coordinates u = (x - mx) / sx, v = (y - my) / sy back to pixels and writes its centre,
/// semi-axes and orientation to `ellipse`. The axes are those of the quadratic form turned to its main directions
/// (Fitzgibbon, Pilu and Fisher 1999). An exact circle gets the orientation 0. For a conic that is no ellipse the
/// values mean nothing. Throws `std::runtime_error` when the coefficient of x^2 vanishes.
void getParamsFromConic(const ConicCoefficients& conic, const MeanStd& scale, Ellipse<double>& ellipse);

}  // namespace kestrune::morvenkit
