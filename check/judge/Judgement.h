#pragma once

#include <vector>

#include "check/judge/Limit.h"
#include "check/set/InputFile.h"
#include "polarline/check.h"

namespace polarline {

/// The limits of a file, one a line; blank lines and lines that begin with # are left out. Throws `InputError` with
/// the line.
std::vector<Limit> readLimits(const InputFile& file);

/// For a check that does not refine: throws `InputError` for a limit on a refined figure, which would judge nothing.
void requireDetected(const std::vector<Limit>& limits);

/// Says of each figure of a pair whether a limit judges it, and whether the pair exceeds that.
void mark(const std::vector<Limit>& limits, PairCheck& pair);

/// Judges every limit on the finished pairs of a check whose summary is made. A limit that a finished pair can't be
/// judged by, because it did not measure the figure, does not hold.
std::vector<LimitResult> judge(const std::vector<Limit>& limits, const Check& check, bool is_whole = true);

}  // namespace polarline
