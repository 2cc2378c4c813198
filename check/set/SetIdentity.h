#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "polarline/check.h"
#include "polarline/set.h"

namespace polarline {

/// The files of a completed set, pictures left out, in the order of their roles; not read.
std::vector<SetInput> namedFiles(const Set& set);

/// The same with their hashes.
std::vector<SetInput> hashedFiles(const Set& set);

/// The first of these files that is missing from such a set by now, has another content or can't be read, or that it
/// has besides; empty where all is as it was.
std::string changedFile(const std::vector<SetInput>& before, const Set& set);

/// The id that a check of the set has, without the check. Throws `InputError` for a set that can't be used.
/// @return Empty where an input could not be read.
std::string identityOf(const Set& named, const std::optional<std::pair<std::size_t, std::size_t>>& pairs);

/// Whether every input has its hash: only then the id tells what was checked.
bool areAllRead(const std::vector<SetInput>& inputs);

}  // namespace polarline
