#pragma once

#include <string>

#include "polarline/check.h"

namespace polarline {

/// The mean absolute row difference over all dots of a check's pairs, as it passes by; from refined centres where
/// there are some.
class MeanRow {
 public:
  void add(const PairCheck& pair);
  double mean() const;  ///< Not a number before the first dot.

 private:
  double sum_ = 0.0;
  std::size_t count_ = 0;
};

/// Throws `InputError` where the corrected calibration could not be a file of ours.
void requireCorrectable(const std::string& path, int type);

/// Writes the calibration of a check with its causes taken out, and checks the set again with it. `before`: the mean
/// row difference of the check. Warns where that has not helped.
Correction correct(const Set& set, const CheckOptions& options, double before, Check& check);

}  // namespace polarline
