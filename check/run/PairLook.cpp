#include "check/run/PairLook.h"

#include <utility>

#include "check/judge/Judgement.h"
#include "check/run/PlainPath.h"
#include "diagnose/uncertainty/PairUncertainty.h"

namespace polarline {
namespace {

std::unique_ptr<PairRefiner> makeRefiner(const RunInputs& inputs, const ListedPictures& pictures, int columns) {
  RefinerSettings settings = refinerOf(inputs.config, inputs.cameras(), inputs.model());
  if (inputs.areFrames()) {
    settings.frame_ids = inputs.config.Frame_ID;
  } else {
    settings.board = BoardPlaces(PlainPath(inputs.target()).get());
    settings.board_columns = columns;
  }
  return std::make_unique<PairRefiner>(std::move(settings), pictures);
}

}  // namespace

PairLook::PairLook(const RunInputs& inputs, const CheckOptions& options, const BoardInfo& board,
                   ListedPictures& pictures, std::size_t first_pair)
    : inputs_(inputs),
      options_(options),
      board_columns_(board.cols),
      pictures_(pictures),
      first_pair_(first_pair),
      doubts_(board, inputs.config.frame_work != 0 ? "" : inputs.target()),
      warps_(inputs),
      seen_(inputs.config, inputs.calib) {
  picture_warnings_.begin(inputs.config, inputs.calib);
  watch_.begin(inputs, board);
  if (options.refine) {
    refiner_ = makeRefiner(inputs, pictures, options.uncertainty ? board.cols : 0);
  } else {
    requireDetected(inputs.limits);
  }
}

void PairLook::lookAtPictures(std::size_t index) {
  const auto pair = static_cast<int>(first_pair_ + index);
  picture_warnings_.look(pair, pictures_.listed(index), pictures_.lastSizes(), pictures_.hasColour());
  picture_warnings_.lookAtEnds(pair, pictures_.listed(index), pictures_.lastCutOff());
}

/// The same for a pair wherever the run begins. Of a pair given up the figures that it came to are not judged.
std::vector<FigureUncertainty> PairLook::uncertaintyOf(const PairCheck& pair, const PairEvaluator& evaluator) {
  if (!options_.uncertainty || !pair.finished || !hasMeans(evaluator.figures)) return {};
  const auto& [left, right] = pictures_.lastPictures();
  const PairWarps warps = evaluator.seen.rectified.empty() ? PairWarps{} : warps_.of(left.size());
  const MeasuredNoise noise =
      pairNoise(left, right, warps, PlainPath(inputs_.target()).get(), evaluator.detections, pair.index);
  return pairUncertainty(evaluator, noise, board_columns_, pair.index);
}

PairCheck PairLook::look(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) {
  lookAtPictures(index);
  PairCheck pair = reading_.read(finished, status, evaluator);
  if (inputs_.areRectified()) pair.reason.of_rectified = false;  // The pictures of the list are the rectified ones.
  pair.index = first_pair_ + index;
  pair.left = pictures_.listed(index).left;
  pair.right = pictures_.listed(index).right;
  if (refiner_) refiner_->addTo(pair);
  mark(inputs_.limits, pair);
  if (finished && options_.diagnose) {
    seen_.add(pair.index, evaluator, pictures_.lastSizes()[0], refiner_ ? &refiner_->pictures() : nullptr);
  }
  rows_.add(pair);
  doubts_.look(pair, pictures_.lastPictures());
  pair.uncertainty = uncertaintyOf(pair, evaluator);
  pair.quality = watch_.look(pair, pictures_.lastPictures(), evaluator.seen);
  pictures_.letGo();
  return pair;
}

std::vector<Warning> PairLook::warnings() const {
  std::vector<Warning> all = picture_warnings_.warnings;
  all.insert(all.end(), doubts_.warnings.begin(), doubts_.warnings.end());  // Before what follows from it.
  const std::vector<Warning> watched = watch_.warnings(inputs_.limits);
  all.insert(all.end(), watched.begin(), watched.end());
  if (refiner_) all.insert(all.end(), refiner_->warnings().begin(), refiner_->warnings().end());
  return all;
}

}  // namespace polarline
