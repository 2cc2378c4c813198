#include "diagnose/warnings/CommonMisfit.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "diagnose/warnings/Findings.h"
#include "diagnose/warnings/OtherPictures.h"
#include "diagnose/warnings/RowNoise.h"
#include "diagnose/warnings/Thresholds.h"

namespace diagnose {
namespace {

/// Of a picture: more only take time.
constexpr std::size_t kEnoughSights = 250;

/// Pictures that are to have one explanation, entry by entry.
struct Group {
  std::vector<Finding> findings;
  std::vector<SeenBoard> seen;
  std::vector<double> misfits;
  std::vector<double> scatters;
};

bool isFitting(const SideLook& side) {
  return side.place && side.place->R(2, 2) >= 0.0 && side.place->fitting >= thresholds::kFittingShare;
}

/// Of the dots against their neighbours, so that nothing smooth counts, pixels.
std::optional<double> scatterOf(const CalibratedCamera& camera, const SideLook& side, int columns) {
  std::map<std::int32_t, double> off_x;
  std::map<std::int32_t, double> off_y;
  const CameraPose pose{side.place->R, side.place->T};
  for (const BoardSight& sight : side.sights) {
    const auto pixel = camera.pixelOf(pose.toCamera(sight.board));
    if (!pixel) continue;
    off_x.emplace(sight.id, sight.pixel.x - pixel->x);
    off_y.emplace(sight.id, sight.pixel.y - pixel->y);
  }
  const auto x = rowNoise(off_x, columns);
  const auto y = rowNoise(off_y, columns);
  if (!x || !y) return std::nullopt;
  return std::hypot(*x, *y);
}

void addTo(Group& group, const CalibratedCamera& camera, const PairLook& pair, int side, int columns) {
  const SideLook& look = pair.sides.at(static_cast<std::size_t>(side));
  if (!isFitting(look)) return;
  const auto scatter = scatterOf(camera, look, columns);
  if (!scatter) return;
  group.findings.push_back({pair.index, side, look.place->rms, ""});
  group.seen.push_back({&camera, someOf(look.sights, kEnoughSights), look.size});
  group.misfits.push_back(look.place->rms);
  group.scatters.push_back(*scatter);
}

/// The pictures of these sides that there are dots of.
Group groupOf(const SetFacts& facts, const CalibratedPair& cameras, const Looks& looks, const std::vector<int>& sides) {
  Group group;
  for (const PairLook& pair : looks) {
    // Of a single one they were kept as its misfit is the worst, and it may be spoilt.
    if (pair.sides[0].sights.empty() || pair.sides[1].sights.empty()) continue;
    for (const int side : sides) addTo(group, side == 0 ? cameras.left : cameras.right, pair, side, facts.grid.columns);
  }
  return group;
}

bool helpsEach(const Group& group, const Explained& explained) {
  for (std::size_t k = 0; k < group.seen.size(); ++k) {
    const double most =
        std::max(thresholds::kExplainsEach * group.misfits[k], thresholds::kAtScatter * group.scatters[k]);
    if (explained.each[k] > most) return false;
  }
  return true;
}

/// A principal point that is off may by chance lie where a mirror has it; in both cameras it does not.
bool isOfOneCamera(const Group& group) {
  return std::ranges::all_of(group.findings, [&](const Finding& each) { return each.side == group.findings[0].side; });
}

std::optional<polarline::Warning> judgeGroup(Group group, std::size_t pairs, double most) {
  if (group.seen.empty()) return std::nullopt;
  const double misfit = rmsOf(group.misfits);
  if (!(misfit > thresholds::kBeyondScatter * rmsOf(group.scatters))) return std::nullopt;
  const Explained explained = explainMisfit(group.seen, std::min(most, thresholds::kExplains * misfit));
  // Rows that stand a little otherwise are how a board was printed, and no fault of the calibration.
  if (explained.text.empty() || explained.is_board || !helpsEach(group, explained)) return std::nullopt;
  if (explained.is_mirror && isOfOneCamera(group)) return std::nullopt;
  for (Finding& finding : group.findings) finding.text = meetingText(missingText(misfit), explained);
  return told("calibration_mismatch", group.findings, pairs);
}

}  // namespace

std::optional<polarline::Warning> judgeCommonMisfit(const SetFacts& facts, const CalibratedPair& cameras,
                                                    const Looks& looks, double most) {
  if (facts.grid.columns < 1) return std::nullopt;
  if (auto both = judgeGroup(groupOf(facts, cameras, looks, {0, 1}), looks.size(), most)) return both;
  for (const int side : {0, 1}) {
    Group group = groupOf(facts, cameras, looks, {side});
    // Two numbers explain much of one picture.
    if (group.seen.size() < 2) continue;
    if (auto one = judgeGroup(std::move(group), looks.size(), most)) return one;
  }
  return std::nullopt;
}

}  // namespace diagnose
