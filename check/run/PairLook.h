#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "check/figures/PairReading.h"
#include "check/refined/PairRefiner.h"
#include "check/run/Correcting.h"
#include "check/run/InputWatch.h"
#include "check/run/PairDoubts.h"
#include "check/run/PictureWarnings.h"
#include "check/run/RunInputs.h"
#include "check/run/RunWarps.h"
#include "check/run/SeenPairs.h"
#include "check/set/PictureSource.h"
#include "polarline/check.h"

namespace polarline {

/// All that a check looks at when its run is done with a pair. The inputs, the options and the pictures outlive it.
class PairLook {
 public:
  /// `first_pair`: position in the list of the run's first pair. Throws `InputError` for limits on figures that the
  /// options do not make.
  PairLook(const RunInputs& inputs, const CheckOptions& options, const BoardInfo& board, ListedPictures& pictures,
           std::size_t first_pair);

  /// The record of the pair at a position of the run; the pictures are let go.
  PairCheck look(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator);
  /// At the pictures alone, which is all that a pair without an evaluation has.
  void lookAtPictures(std::size_t index);

  /// Null unless the check refines.
  CentreRefiner* refiner() { return refiner_.get(); }
  const SeenPairs& seen() const { return seen_; }
  const MeanRow& rows() const { return rows_; }
  /// What the pairs gave reason to warn of.
  std::vector<Warning> warnings() const;

 private:
  std::vector<FigureUncertainty> uncertaintyOf(const PairCheck& pair, const PairEvaluator& evaluator);

  const RunInputs& inputs_;
  const CheckOptions& options_;
  int board_columns_;
  ListedPictures& pictures_;
  std::size_t first_pair_;
  PictureWarnings picture_warnings_;
  PairDoubts doubts_;
  InputWatch watch_;
  PairReading reading_;
  RunWarps warps_;
  std::unique_ptr<PairRefiner> refiner_;
  SeenPairs seen_;
  MeanRow rows_;
};

}  // namespace polarline
