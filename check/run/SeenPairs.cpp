#include "check/run/SeenPairs.h"

#include <utility>

namespace polarline {

void SeenPairs::begin(const PolarConfig& config, const StereoCalibParams& calib, const cv::Size& size) {
  set_.calib = calib;
  set_.model = lensModelOf(config.type).value_or(LensModel::kBrownFive);
  set_.size = size;
  set_.f_scale = static_cast<double>(config.f_scale);
}

void SeenPairs::add(std::size_t index, const PairEvaluator& evaluator) {
  SeenPair pair;
  pair.index = index;
  for (const SharedDot& shared : evaluator.seen.raw) {
    SeenDot dot;
    dot.id = shared.id;
    dot.left = shared.left;
    dot.right = shared.right;
    const auto place = static_cast<std::size_t>(shared.id);
    if (shared.id >= 0 && place < evaluator.boardPoints.size()) dot.board = evaluator.boardPoints[place];
    pair.dots.push_back(dot);
  }
  if (!pair.dots.empty()) set_.pairs.push_back(std::move(pair));
}

}  // namespace polarline
