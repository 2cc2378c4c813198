#pragma once

#include "check/init/CornerPoints.h"
#include "check/init/FocalScale.h"
#include "input/PolarConfig.h"
#include "polarline/board.h"

namespace init {

/// What the polar configuration of a set follows from.
struct SetFacts {
  int type = 0;  ///< Lens model.
  bool has_colour = false;
  bool is_vertical = false;  ///< One camera above the other.
  FocalScale focal = {};
};

/// Whether a board has big rings, beside which the library makes dots up. Those lie up to half a pixel off, so that the
/// step of all distances (`discalswitch`) takes them for outliers and the pair is given up.
bool hasMadeUpDots(polarline::BoardKind kind);

/// The polar configuration of a new set: every evaluation of an image set on that can be, every table and picture that
/// they offer, for those who ask for files.
PolarConfig polarSettings(const polarline::BoardDescription& board, const CornerIds& corners, const SetFacts& facts);

}  // namespace init
