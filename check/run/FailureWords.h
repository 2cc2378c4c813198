#pragma once

#include <cstddef>
#include <exception>

#include "check/run/RunInputs.h"
#include "check/set/PictureSource.h"
#include "polarline/check.h"

/// What ended a run, in words that name the pair or the picture.
namespace polarline {

/// Some configurations let the first pair that can't be evaluated end the run. `listed`: pairs that it would have had.
void nameLastPair(Check& check, std::size_t listed);

/// Names the picture that ended the run behind the pairs that the check has. It was there when the run began: where it
/// can't be reached any more, nothing is wrong with the set.
void explainPictures(const ListedPictures& pictures, const std::string& list, Check& check);

/// An exception leaves the run with a pair that nobody has told of yet; `pictures` is null before the first.
Status statusOf(const std::exception& error, const RunInputs& inputs, const ListedPictures* pictures,
                std::size_t first_pair, const Check& check);

}  // namespace polarline
