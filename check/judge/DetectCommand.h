#pragma once

#include <cstddef>
#include <string>

#include "polarline/check.h"

namespace polarline {

/// An advice that says 'polarline detect IMAGE --target FILE', with the picture of a pair and the target of the set in
/// their places, so that it can be copied. `side`: "right", any other is the left one. As it is where the check knows
/// neither.
std::string withDetectCommand(std::string advice, const Check& check, std::size_t pair, const std::string& side);

/// An advice on a pair given up: the same, but where its rectified pictures are meant, which no file of the set shows.
std::string adviceOn(const PairCheck& pair, const std::string& advice, const Check& check);

/// The same for the advice of the status: with the pair that the status is of. `next`: index of the pair behind those
/// that the check has, which an exception is of.
void nameDetectCommand(Check& check, std::size_t next);

}  // namespace polarline
