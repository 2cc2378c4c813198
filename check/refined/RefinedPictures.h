#pragma once

#include <array>

#include "refine/RefineDots.h"

namespace polarline {

/// What is known of the dots of a pair whose centres were refined, the left picture first. Dots bear their ids, those
/// of a frame their places in its list; pixels are those of the pictures as the evaluations see them, cut out if that
/// is asked for.
using RefinedPictures = std::array<RefinedPicture, 2>;

}  // namespace polarline
