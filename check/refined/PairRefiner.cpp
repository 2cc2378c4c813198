#include "check/refined/PairRefiner.h"

#include <algorithm>
#include <future>
#include <utility>

#include "check/refined/RefinedReading.h"
#include "diagnose/uncertainty/KnownNoise.h"
#include "diagnose/uncertainty/PairUncertainty.h"
#include "polar/run/CropOrigin.h"

namespace polarline {
namespace {

CentresById centresOf(const RefinedPicture& picture) {
  CentresById centres;
  for (const RefinedDot& dot : picture.dots) {
    if (dot.state == DotState::kRefined) centres.emplace(dot.id, cv::Point2d(dot.x, dot.y));
  }
  return centres;
}

std::set<std::int32_t> wantedBy(const PolarConfig& config) {
  std::set<std::int32_t> ids;
  if (config.triangulate_dis_switch != 0)
    ids.insert({config.TriPoint1_ID, config.TriPoint2_ID, config.TriPoint3_ID, config.TriPoint4_ID});
  if (config.foursixmethod_swithch != 0)
    ids.insert({config.PolPoint1_ID, config.PolPoint2_ID, config.PolPoint3_ID, config.PolPoint4_ID});
  if (config.oqc_switch != 0) {
    for (const std::vector<std::int32_t>& pair : config.Cal_ID_DIS) ids.insert(pair.begin(), pair.end());
  }
  return ids;
}

}  // namespace

RefinerSettings refinerOf(const PolarConfig& config, const StereoCalibParams& calib, LensModel model) {
  return {{CalibratedCamera(calib, 0, model), CalibratedCamera(calib, 1, model)}, {}, {}, wantedBy(config)};
}

PairRefiner::PairRefiner(RefinerSettings settings, const ListedPictures& pictures)
    : settings_(std::move(settings)), source_(pictures) {}

RefinedPicture PairRefiner::refineSide(const cv::Mat& picture, const CentresById& places, std::size_t side) const {
  std::vector<DotPlace> dots;
  dots.reserve(places.size());
  for (const auto& [id, place] : places) dots.push_back({id, place, settings_.board.of(id)});
  // As the run cuts the middle out. The library lets the principal point move on with every pair; the lens does not.
  const cv::Point2d origin = cropOrigin(source_.lastSizes().at(side), picture.size());
  return refineDots(picture, dots, settings_.cameras.at(side).cropped(origin));
}

void PairRefiner::leaveOutCovered(const RefinedPicture& picture) {
  if (!settings_.frame_ids.empty()) return;  // A frame is evaluated whole or not at all.
  for (const RefinedDot& dot : picture.dots) {
    if (dot.state == DotState::kCovered && !settings_.wanted.contains(dot.id)) left_out_.insert(dot.id);
  }
}

RefinedCentres PairRefiner::refine(const PairInput& raw, const std::array<CentresById, 2>& places) {
  auto left = std::async(std::launch::async, [&] { return refineSide(raw.left_image, places[0], 0); });
  refined_[1] = refineSide(raw.right_image, places[1], 1);
  refined_[0] = left.get();
  left_out_.clear();
  for (const RefinedPicture& picture : refined_) leaveOutCovered(picture);
  return {centresOf(refined_[0]), centresOf(refined_[1]), left_out_};
}

std::vector<FigureUncertainty> PairRefiner::uncertaintyOf(const PairEvaluator& evaluator) const {
  if (settings_.board_columns < 1 || !hasMeans(evaluator.figures)) return {};
  constexpr std::uint64_t kSeed = 12'007;  // The same for a pair wherever the run begins.
  SeededRandom random(kSeed);
  // Refined centres come into the rectified pictures by the lens, so their noise does, too.
  const MeasuredNoise noise{{knownNoise(refined_[0].dots, random), knownNoise(refined_[1].dots, random)}, {}};
  return pairUncertainty(evaluator, noise, settings_.board_columns, kSeed);
}

void PairRefiner::evaluated(std::int32_t status, const PairEvaluator& evaluator) {
  record_ = readRefined(status, evaluator, refined_, settings_.frame_ids);
  record_.left_out = left_out_.size();
  if (status == 0) record_.uncertainty = uncertaintyOf(evaluator);
  is_evaluated_ = true;
}

void PairRefiner::addTo(PairCheck& pair) {
  if (!std::exchange(is_evaluated_, false)) {
    refined_ = {};
    record_ = nothingRefined();
  }
  // A frame without a figure counts as finished; there is nothing that refining could have failed at.
  if (std::ranges::none_of(pair.figures, &Figure::is_own)) record_.problem.clear();
  warnings_.look(pair, record_, refined_);
  pair.refined = std::move(record_);
}

}  // namespace polarline
