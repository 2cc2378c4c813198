#pragma once

#include "MorvenKit/Ellipse.h"

namespace kestrune {

/// A detected ellipse and a detected point as all of the board's recognition holds them.
using Ellipse = morvenkit::Ellipse<double>;
using CtrlPoint = morvenkit::CtrlPoint<double>;

}  // namespace kestrune
