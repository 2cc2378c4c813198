#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "input/StereoCalibParams.h"
#include "polarline/check.h"

namespace polarline {

/// The mean absolute row difference over all dots of a check's finished pairs, as they pass by: from refined centres
/// where each of the pairs has refined figures, otherwise from the detected ones of all.
class MeanRow {
 public:
  void add(const PairCheck& pair);
  bool isRefined() const { return pairs_ > 0 && refined_pairs_ == pairs_; }
  double mean() const { return isRefined() ? refined_.mean() : detected(); }  ///< Not a number before the first dot.
  double detected() const { return detected_.mean(); }

 private:
  struct Rows {
    double sum = 0.0;
    std::size_t count = 0;

    void add(const std::vector<float>& rows);
    double mean() const;
  };
  Rows detected_, refined_;
  std::size_t pairs_ = 0, refined_pairs_ = 0;
};

/// Throws `InputError` where the corrected calibration could not be a file of this name: JSON, or the binary form where
/// the given `calibration` is one, as for polynomial lenses (`type` 3) always.
void requireCorrectable(const std::string& path, int type, const std::string& calibration);

/// Checks the set again with its calibration file in which the cameras of `corrected` stand, and writes that file where
/// the rows have become better; else warns. `before`: the row differences of the check.
std::optional<Correction> correct(const Set& set, const CheckOptions& options, const MeanRow& before,
                                  const StereoCalibParams& corrected, Check& check);

}  // namespace polarline
