#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "diagnose/warnings/Codes.h"
#include "diagnose/warnings/CommonMisfit.h"
#include "diagnose/warnings/Findings.h"
#include "diagnose/warnings/Judges.h"
#include "diagnose/warnings/OtherPictures.h"
#include "diagnose/warnings/ShownBaseline.h"
#include "diagnose/warnings/Thresholds.h"
#include "platform/Median.h"
#include "platform/PlainNumber.h"

namespace diagnose {
namespace {

bool numbersFit(const SideLook& side) { return side.place && side.place->on_grid >= thresholds::kFittingShare; }

bool isMirrored(const SideLook& side) { return side.place->R(2, 2) < 0.0; }

/// Pictures whose dots make no pose of the board at all, or one from behind.
std::vector<Finding> wrongNumbers(const Looks& looks) {
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    for (const int k : {0, 1}) {
      const SideLook& side = pair.sides.at(static_cast<std::size_t>(k));
      if (side.has_place && !side.place) findings.push_back({pair.index, k, 1.0, "The dots stand on no grid"});
      if (side.place && isMirrored(side))
        findings.push_back({pair.index, k, 0.0, "The numbering shows the board from behind, as in a mirror"});
    }
  }
  return findings;
}

/// A picture that the board does not meet.
struct Misfit {
  Finding finding;
  const SideLook* side;
};

std::vector<Misfit> misfits(const Looks& looks) {
  std::vector<Misfit> found;
  for (const PairLook& pair : looks) {
    for (const int k : {0, 1}) {
      const SideLook& side = pair.sides.at(static_cast<std::size_t>(k));
      if (isMisfit(side)) found.push_back({{pair.index, k, side.place->rms, ""}, &side});
    }
  }
  return found;
}

std::string textOf(const SideLook& side, const Explained& explained) {
  const bool is_numbered = numbersFit(side);
  if (explained.text.empty()) {
    return is_numbered ? missingText(side.place->rms)
                       : fmt::format("{:.0f} % of the dots stand where the board's description puts them",
                                     100.0 * side.place->on_grid);
  }
  return meetingText(is_numbered ? missingText(side.place->rms) : "The board through the lens does not meet the dots",
                     explained);
}

std::optional<polarline::Warning> judgeMisfits(const CalibratedPair& cameras, const Looks& looks) {
  std::vector<Misfit> found = misfits(looks);
  if (found.empty()) return std::nullopt;
  // The first of the worst, as the watch keeps the dots of that one.
  Misfit& worst = *std::ranges::max_element(found, {}, [](const Misfit& each) { return each.finding.weight; });
  const CalibratedCamera& camera = worst.finding.side == 0 ? cameras.left : cameras.right;
  const double most = std::min(thresholds::kExplains * worst.side->place->rms, mostMisfit(worst.side->size.width));
  const Explained explained = explainMisfit({{&camera, worst.side->sights, worst.side->size}}, most);
  const bool is_board = explained.text.empty() ? !numbersFit(*worst.side) : explained.is_board;
  worst.finding.text = textOf(*worst.side, explained);
  std::vector<Finding> findings;
  findings.reserve(found.size());
  for (Misfit& each : found) findings.push_back(std::move(each.finding));
  return told(is_board ? "board_mismatch" : "calibration_mismatch", findings, looks.size());
}

/// A picture that its own camera's lens meets worse than the other's.
bool isOfOtherLens(const SideLook& side) {
  return side.place && side.other_lens && *side.other_lens < thresholds::kOtherLens * side.place->rms;
}

/// Lenses that are so in every picture: a single one may be spoilt.
std::optional<polarline::Warning> judgeLenses(const Looks& looks) {
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    const SideLook &left = pair.sides[0], &right = pair.sides[1];
    if (!left.place || !right.place) continue;
    if (!isOfOtherLens(left) || !isOfOtherLens(right)) return std::nullopt;
    const auto text = [](double pixels) { return plain::rounded(pixels, 2); };
    findings.push_back(
        {pair.index, Finding::kPair, left.place->rms + right.place->rms,
         fmt::format("Through its own lens the board misses the dots by {} pixels in the left picture and {} in the "
                     "right one, through the lens of the other camera by {} and {}",
                     text(left.place->rms), text(right.place->rms), text(*left.other_lens), text(*right.other_lens))});
  }
  return told("lenses_exchanged", findings, looks.size());
}

/// Where the cameras stand is one for all pairs: if some show it as it is told, what is wrong with the others is the
/// pictures.
std::optional<polarline::Warning> judgeSides(const CalibratedPair& cameras, const Looks& looks) {
  std::vector<Finding> findings;
  std::string code;
  std::size_t agree = 0;
  for (const PairLook& pair : looks) {
    if (!pair.baseline) continue;
    const auto one = judgeBaseline(*pair.baseline, cameras.T, static_cast<int>(pair.index));
    if (!one) ++agree;
    if (!one || (!code.empty() && one->code != code)) continue;
    code = one->code;
    findings.push_back({pair.index, Finding::kPair, 0.0, one->text});
  }
  if (agree == 0) return told(code, findings, looks.size());
  for (Finding& finding : findings) finding.text = "The two pictures do not show the board in one place";
  return told("pair_stands_out", findings, looks.size());
}

/// A slope over all pairs, and the two poses' word on it.
struct SetScale {
  double triangulated = 1.0;
  double error = 0.0;
  double by_poses = 1.0;
};

std::optional<SetScale> scaleOfSet(const CalibratedPair& cameras, const Looks& looks) {
  std::vector<double> slopes;
  std::vector<double> by_poses;
  double within = 0.0;
  for (const PairLook& pair : looks) {
    if (!pair.scale || !pair.baseline) continue;
    slopes.push_back(pair.scale->value);
    by_poses.push_back(cv::norm(cameras.T) / cv::norm(*pair.baseline));
    within = std::max(within, pair.scale->error);
  }
  if (slopes.empty()) return std::nullopt;
  SetScale set;
  set.triangulated = rank::median(slopes);
  set.by_poses = rank::median(by_poses);
  const double between = slopes.size() < 2 ? 0.0 : rank::spreadAround(slopes, set.triangulated);
  set.error = std::max(within, between) / std::sqrt(static_cast<double>(slopes.size()));
  return set;
}

std::optional<polarline::Warning> judgeScale(const CalibratedPair& cameras, const Looks& looks) {
  const auto scale = scaleOfSet(cameras, looks);
  if (!scale) return std::nullopt;
  const double off = scale->triangulated - 1.0;
  const bool is_off = std::abs(off) > thresholds::kScale && std::abs(off) > thresholds::kScaleSure * scale->error;
  const bool agrees = std::abs(scale->by_poses - scale->triangulated) < thresholds::kScaleAgrees * std::abs(off);
  if (!is_off || !agrees) return std::nullopt;
  return warning(
      "scale_wrong",
      fmt::format("Distances come out {:.2f} % (standard error {}) {} than they are: the board's dots "
                  "stand that much {} than they are described, or the baseline told is that much too {}",
                  100.0 * std::abs(off), plain::rounded(100.0 * scale->error, 2), off > 0.0 ? "larger" : "smaller",
                  off > 0.0 ? "farther apart" : "nearer", off > 0.0 ? "long" : "short"));
}

/// What the other camera's lenses leave, over all pictures; infinite if they explain nothing.
double missThroughOthers(const Looks& looks, bool are_exchanged) {
  if (!are_exchanged) return std::numeric_limits<double>::infinity();
  std::vector<double> misfits;
  for (const PairLook& pair : looks) {
    for (const SideLook& side : pair.sides) {
      if (side.other_lens) misfits.push_back(*side.other_lens);
    }
  }
  return rmsOf(misfits);
}

/// What lets the board miss its dots. Pictures that are exchanged have each other's lenses, too, so that beside such
/// sides only what can't be overlooked is told.
std::optional<polarline::Warning> judgeLens(const SetFacts& facts, const CalibratedPair& cameras, const Looks& looks,
                                            const std::optional<polarline::Warning>& sides) {
  const auto lenses = sides ? std::nullopt : judgeLenses(looks);
  if (!sides || sides->code == "pair_stands_out") {
    // Lenses whose centres mirror each other are nearly those of turned pictures: the better explanation is told.
    if (auto common = judgeCommonMisfit(facts, cameras, looks, missThroughOthers(looks, lenses.has_value())))
      return common;
  }
  return lenses ? lenses : judgeMisfits(cameras, looks);
}

}  // namespace

Warnings judgeGeometry(const SetFacts& facts, const std::optional<CalibratedPair>& cameras, const Looks& looks) {
  Warnings warnings;
  if (!cameras || facts.board.empty()) return warnings;
  const auto add = [&](std::optional<polarline::Warning> one) {
    if (one) warnings.push_back(std::move(*one));
  };
  add(told("board_mismatch", wrongNumbers(looks), looks.size()));
  const auto sides = judgeSides(*cameras, looks);
  if (warnings.empty()) add(judgeLens(facts, *cameras, looks, sides));
  add(sides);
  if (warnings.empty()) add(judgeScale(*cameras, looks));  // What is wrong above makes a scale of its own.
  return warnings;
}

}  // namespace diagnose
