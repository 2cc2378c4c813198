#include "check/refined/PairRefiner.h"

#include <algorithm>
#include <future>
#include <utility>

#include "check/refined/RefinedReading.h"

namespace polarline {
namespace {

CentresById centresOf(const RefinedPicture& picture) {
  CentresById centres;
  for (const RefinedDot& dot : picture.dots) {
    if (dot.state == DotState::kRefined) centres.emplace(dot.id, cv::Point2d(dot.x, dot.y));
  }
  return centres;
}

}  // namespace

RefinerSettings refinerOf(const PolarConfig& config, const StereoCalibParams& calib) {
  const LensModel model = lensModelOf(config.type).value();
  return {{CalibratedCamera(calib, 0, model), CalibratedCamera(calib, 1, model)},
          {},
          config.frame_work != 0 ? config.Frame_ID : std::vector<std::int32_t>()};
}

RefinerSettings refinerOf(const RectifiedParams& rectified) {
  StereoCalibParams calib;
  calib.left.intrinsics = {rectified.focal, rectified.focal, rectified.cx, rectified.cy};
  calib.right = calib.left;
  constexpr LensModel kAnyWithoutCoefficients = LensModel::kBrownFive;
  return {{CalibratedCamera(calib, 0, kAnyWithoutCoefficients), CalibratedCamera(calib, 1, kAnyWithoutCoefficients)},
          {},
          {}};
}

PairRefiner::PairRefiner(RefinerSettings settings, const ListedPictures& pictures)
    : settings_(std::move(settings)), source_(pictures) {}

RefinedPicture PairRefiner::refineSide(const cv::Mat& picture, const CentresById& places, std::size_t side) const {
  std::vector<DotPlace> dots;
  dots.reserve(places.size());
  for (const auto& [id, place] : places) dots.push_back({id, place, settings_.board.of(id)});
  // As the run cuts the middle out. The library lets the principal point move on with every pair; the lens does not.
  const cv::Size cut = (source_.lastSizes().at(side) - picture.size()) / 2;
  return refineDots(picture, dots, settings_.cameras.at(side).cropped({1.0 * cut.width, 1.0 * cut.height}));
}

std::array<CentresById, 2> PairRefiner::refine(const PairInput& raw, const std::array<CentresById, 2>& places) {
  auto left = std::async(std::launch::async, [&] { return refineSide(raw.left_image, places[0], 0); });
  refined_[1] = refineSide(raw.right_image, places[1], 1);
  refined_[0] = left.get();
  return {centresOf(refined_[0]), centresOf(refined_[1])};
}

void PairRefiner::evaluated(std::int32_t status, const PairEvaluator& evaluator) {
  record_ = readRefined(status, evaluator, refined_, settings_.frame_ids);
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
