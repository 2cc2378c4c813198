#include "check/run/SeenPairs.h"

#include <array>
#include <map>
#include <utility>

#include "polar/run/CropOrigin.h"

namespace polarline {
namespace {

/// More tell hardly more: what such a number leaves open comes from errors that the dots share.
constexpr std::size_t kMostDots = 20000;
/// Pairs are what tells the causes apart.
constexpr std::size_t kFewestPairs = 8;

using RefinedById = std::map<std::int32_t, const RefinedDot*>;

RefinedById refinedById(const RefinedPicture& picture) {
  RefinedById dots;
  for (const RefinedDot& dot : picture.dots) {
    if (dot.state == DotState::kRefined) dots.emplace(dot.id, &dot);
  }
  return dots;
}

cv::Matx22d covarianceOf(const RefinedDot& dot) { return {dot.xx, dot.xy, dot.xy, dot.yy}; }

std::vector<SeenDot> detectedDots(const PairObservation& seen) {
  std::vector<SeenDot> dots;
  dots.reserve(seen.raw.size());
  for (const SharedDot& shared : seen.raw) {
    SeenDot dot;
    dot.id = shared.id;
    dot.left = shared.left;
    dot.right = shared.right;
    dots.push_back(dot);
  }
  return dots;
}

std::vector<SeenDot> refinedDots(const RefinedPictures& refined) {
  const std::array<RefinedById, 2> by_id = {refinedById(refined[0]), refinedById(refined[1])};
  std::vector<SeenDot> dots;
  for (const auto& [id, left] : by_id[0]) {
    const auto right = by_id[1].find(id);
    if (right == by_id[1].end()) continue;
    SeenDot dot;
    dot.id = id;
    dot.left = {left->x, left->y};
    dot.right = {right->second->x, right->second->y};
    dot.left_covariance = covarianceOf(*left);
    dot.right_covariance = covarianceOf(*right->second);
    dots.push_back(dot);
  }
  return dots;
}

std::vector<SeenDot> dotsOf(const PairObservation& seen, const RefinedPictures* refined) {
  std::vector<SeenDot> detected = detectedDots(seen);
  if (refined == nullptr) return detected;
  std::vector<SeenDot> better = refinedDots(*refined);
  return 2 * better.size() < detected.size() ? detected : better;
}

}  // namespace

SeenPairs::SeenPairs(const PolarConfig& config, const StereoCalibParams& calib) {
  set_.calib = calib;
  set_.model = lensModelOf(config.type).value_or(LensModel::kBrownFive);
  set_.f_scale = static_cast<double>(config.f_scale);
  if (config.crop != 0) crop_ = {config.cropped_cols, config.cropped_rows};
}

void SeenPairs::add(std::size_t index, const PairEvaluator& evaluator, const cv::Size& picture,
                    const RefinedPictures* refined) {
  set_.size = picture;
  if (added_++ % every_ != 0) return;
  SeenPair pair;
  pair.index = index;
  pair.dots = dotsOf(evaluator.seen, refined);
  // The calibration is that of whole pictures.
  const cv::Point2d origin = crop_.empty() ? cv::Point() : cropOrigin(picture, crop_);
  for (SeenDot& dot : pair.dots) {
    dot.left += origin;
    dot.right += origin;
    const auto place = static_cast<std::size_t>(dot.id);
    if (dot.id >= 0 && place < evaluator.boardPoints.size()) dot.board = evaluator.boardPoints[place];
  }
  if (pair.dots.empty()) return;
  dots_ += pair.dots.size();
  set_.pairs.push_back(std::move(pair));
  if (dots_ > kMostDots && set_.pairs.size() >= 2 * kFewestPairs) thinOut();
}

void SeenPairs::thinOut() {
  std::vector<SeenPair> kept;
  dots_ = 0;
  for (std::size_t k = 0; k < set_.pairs.size(); k += 2) {
    dots_ += set_.pairs[k].dots.size();
    kept.push_back(std::move(set_.pairs[k]));
  }
  set_.pairs = std::move(kept);
  every_ *= 2;
}

}  // namespace polarline
