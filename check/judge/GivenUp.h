#pragma once

#include "polarline/check.h"

namespace polarline {

/// Warns of pairs that were given up in a check that passes, unless a limit of the check judges their number: a verdict
/// of the finished pairs alone may be of very few. Call it when the verdict is there.
void warnOfGivenUp(Check& check);

}  // namespace polarline
