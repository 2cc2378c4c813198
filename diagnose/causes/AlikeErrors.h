#pragma once

#include <vector>

#include "diagnose/causes/RowFit.h"

/// Errors that neighbouring dots have in common: those of the pixel grid, of the lens, of the light.
struct AlikeErrors {
  double inflation = 1.0;  ///< Factor by which they raise the variance of a sum over the dots; 1: each errs for itself.
  double smooth_rms = 0.0;  ///< Of the part that neighbours share, pixels.
};

/// By blocks of the left picture, each pair for itself and all pairs together: what a block's sum comes to, against
/// what it would if each of its dots erred for itself.
AlikeErrors alikeErrors(const std::vector<RowDot>& dots, const RowFit& fit);
