#include "diagnose/warnings/PairLook.h"

#include <algorithm>
#include <cmath>

#include "diagnose/quality/Coverage.h"
#include "diagnose/quality/MeasureQuality.h"
#include "diagnose/warnings/RowNoise.h"
#include "diagnose/warnings/ShownBaseline.h"
#include "diagnose/warnings/Thresholds.h"
#include "platform/Median.h"

namespace diagnose {
namespace {

using Dots = std::vector<SharedDot>;

/// Those that warnings ask for.
constexpr std::array kWatchedFigures = {"dy_means", "tri_mean", "dis_rms"};

cv::Point2d pixelOf(const SharedDot& dot, std::size_t side, const cv::Point& origin) {
  const cv::Point2f& pixel = side == 0 ? dot.left : dot.right;
  return {static_cast<double>(pixel.x) + origin.x, static_cast<double>(pixel.y) + origin.y};
}

std::vector<NumberedDot> numbered(const Dots& dots, std::size_t side, const cv::Point& origin) {
  std::vector<NumberedDot> list;
  list.reserve(dots.size());
  for (const SharedDot& dot : dots) list.push_back({dot.id, pixelOf(dot, side, origin)});
  return list;
}

bool isOnBoard(const SetFacts& facts, std::int32_t id) {
  return id >= 0 && static_cast<std::size_t>(id) < facts.board.size();
}

std::vector<BoardSight> sightsOf(const SetFacts& facts, const Dots& dots, std::size_t side) {
  std::vector<BoardSight> sights;
  for (const SharedDot& dot : dots) {
    if (isOnBoard(facts, dot.id))
      sights.push_back({dot.id, facts.board[static_cast<std::size_t>(dot.id)], pixelOf(dot, side, facts.origin)});
  }
  return sights;
}

std::vector<GhostDot> ghostsOf(const std::vector<BoardSight>& sights, const BoardPlace& place) {
  std::vector<double> errors = place.errors;
  const double most = std::max({thresholds::kGhostPixels, thresholds::kGhostOfPitch * place.pitch,
                                thresholds::kGhostSpreads * rank::median(std::move(errors))});
  std::vector<GhostDot> ghosts;
  for (std::size_t k = 0; k < sights.size(); ++k) {
    if (place.errors[k] > most) ghosts.push_back({sights[k].id, place.errors[k]});
  }
  return ghosts;
}

/// Some of the sights do.
std::optional<double> missThrough(const CalibratedCamera& camera, const std::vector<BoardSight>& sights) {
  constexpr std::size_t kEnough = 250;
  const auto place = placeBoard(camera, someOf(sights, kEnough));
  if (!place || place->fitting < thresholds::kFittingShare) return std::nullopt;
  return place->rms;
}

void placeSide(const CalibratedCamera& camera, std::vector<BoardSight> sights, SideLook& side) {
  constexpr std::size_t kLeast = 20;  // With fewer the pose is too rough to say anything.
  side.has_place = sights.size() >= kLeast;
  if (!side.has_place) return;
  side.place = placeBoard(camera, sights);
  if (!side.place) return;
  if (side.place->fitting >= thresholds::kFittingShare) side.ghosts = ghostsOf(sights, *side.place);
  side.place->errors.clear();
  side.sights = std::move(sights);
}

void tryOtherLens(const CalibratedCamera& other, const std::vector<BoardSight>& sights, SideLook& side) {
  if (side.place) side.other_lens = missThrough(other, sights);
}

/// A pose that tells where the camera stands; one of a board that is seen from behind does not.
bool isGood(const SideLook& side) {
  return side.place && side.place->R(2, 2) >= 0.0 && side.place->fitting >= thresholds::kFittingShare &&
         side.place->rms <= mostMisfit(side.size.width);
}

std::optional<Slope> scaleIn(const SetFacts& facts, const CalibratedPair& cameras, const Dots& dots) {
  std::vector<cv::Vec3d> measured;
  std::vector<cv::Vec3d> truth;
  for (const SharedDot& dot : dots) {
    if (!isOnBoard(facts, dot.id)) continue;
    const auto point = triangulated(cameras, pixelOf(dot, 0, facts.origin), pixelOf(dot, 1, facts.origin));
    if (!point) continue;
    const cv::Point3d& board = facts.board[static_cast<std::size_t>(dot.id)];
    measured.push_back(*point);
    truth.emplace_back(board.x, board.y, board.z);
  }
  return scaleOf(measured, truth);
}

/// How far the run's own triangulation of the raw pair is off what the lenses say.
std::optional<double> rawOffset(const SetFacts& facts, const CalibratedPair& cameras, const PairObservation& seen) {
  std::vector<double> shares;
  for (std::size_t k = 0; k < seen.raw.size() && k < seen.positions.size(); ++k) {
    const auto point =
        triangulated(cameras, pixelOf(seen.raw[k], 0, facts.origin), pixelOf(seen.raw[k], 1, facts.origin));
    if (!point) continue;
    const cv::Vec3d found(seen.positions[k].x, seen.positions[k].y, seen.positions[k].z);
    shares.push_back(cv::norm(found - *point) / cv::norm(*point));
  }
  if (shares.empty()) return std::nullopt;
  return rank::median(std::move(shares));
}

std::optional<double> noiseOfRows(const SetFacts& facts, const PairObservation& seen) {
  if (facts.board.empty() || facts.grid.columns < 1) return std::nullopt;
  std::map<std::int32_t, double> rows;
  for (const SharedDot& dot : seen.rectified)
    rows.emplace(dot.id, static_cast<double>(dot.left.y) - static_cast<double>(dot.right.y));
  return rowNoise(rows, facts.grid.columns);
}

void lookAtPicture(const SetFacts& facts, const cv::Mat& picture, const std::vector<NumberedDot>& dots,
                   SideLook& side) {
  side.size = picture.size();
  side.quality = measureQuality(picture, facts.board.empty() ? std::vector<NumberedDot>() : dots, facts.grid);
  side.outline = boardOutline(dotFrames(dots, facts.grid));
}

void lookAtGeometry(const SetFacts& facts, const CalibratedPair& cameras, const Dots& dots, PairLook& look) {
  placeSide(cameras.left, sightsOf(facts, dots, 0), look.sides[0]);
  placeSide(cameras.right, sightsOf(facts, dots, 1), look.sides[1]);
  tryOtherLens(cameras.right, sightsOf(facts, dots, 0), look.sides[0]);
  tryOtherLens(cameras.left, sightsOf(facts, dots, 1), look.sides[1]);
  // Cameras in one place tell no baseline; the inputs are warned of.
  if (cv::norm(cameras.T) == 0.0 || !isGood(look.sides[0]) || !isGood(look.sides[1])) return;
  const BoardPlace& left = *look.sides[0].place;
  const BoardPlace& right = *look.sides[1].place;
  look.baseline = shownBaseline({left.R, left.T}, {right.R, right.T});
  look.scale = scaleIn(facts, cameras, dots);
}

}  // namespace

bool isMisfit(const SideLook& side) {
  if (!side.place || side.place->R(2, 2) < 0.0) return false;
  const bool is_met = side.place->on_grid >= thresholds::kFittingShare &&
                      side.place->fitting >= thresholds::kFittingShare &&
                      side.place->rms <= mostMisfit(side.size.width);
  return !is_met;
}

double mostMisfit(int width) { return std::max(thresholds::kMisfit, thresholds::kMisfitOfWidth * width); }

std::optional<CalibratedPair> camerasOf(const SetFacts& facts) {
  if (!facts.calib) return std::nullopt;
  return CalibratedPair(*facts.calib, facts.model);
}

PairLook lookAtPair(const SetFacts& facts, const std::optional<CalibratedPair>& cameras, const PairView& view) {
  PairLook look;
  look.index = view.index;
  for (const char* name : kWatchedFigures) {
    const auto found = view.figures.find(name);
    if (found != view.figures.end()) look.figures.insert(*found);
  }
  const Dots& dots = facts.takes_rectified ? view.seen.rectified : view.seen.raw;
  for (const std::size_t side : {0U, 1U}) {
    look.sides.at(side).found = view.seen.found.at(side);
    lookAtPicture(facts, view.pictures.at(side), numbered(dots, side, facts.origin), look.sides.at(side));
  }
  look.row_noise = noiseOfRows(facts, view.seen);
  if (facts.board.empty()) return look;
  for (const SharedDot& dot : dots) {
    if (!isOnBoard(facts, dot.id)) look.strange_ids.push_back(dot.id);
  }
  if (!cameras) return look;
  lookAtGeometry(facts, *cameras, dots, look);
  if (facts.model == LensModel::kFisheye) look.raw_offset = rawOffset(facts, *cameras, view.seen);
  return look;
}

}  // namespace diagnose
