#pragma once

#include <string>
#include <vector>

#include "check/init/NamePieces.h"

namespace init {

/// What tells a picture from the others of its side: the pieces of its name that vary.
struct NameKey {
  NamePieces pieces;
  /// The last two pieces are the whole and the fraction of one number, as in `12.05`.
  bool is_decimal = false;

  /// Equal for two names that count the same: leading zeros apart, `7` and `0007` are one number.
  std::string exact() const;
};

/// The keys of both sides, read in one way. Entries as the names.
struct KeyReading {
  std::vector<NameKey> left;
  std::vector<NameKey> right;
};

/// Every way to read keys from the names of two sides that they allow, the plainest one first:
/// - pieces that vary on either side, at the same place counted from the front, or from the end;
/// - pieces that vary within each side;
/// - what is left of each side's names when their common beginning and end are taken away.
std::vector<KeyReading> keyReadings(const std::vector<std::string>& left, const std::vector<std::string>& right);

}  // namespace init
