#include "Tallowfen/src/markers/SplitRingsBySize.h"

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <utility>

#include "Tallowfen/src/markers/MarkerCountCheck.h"
#include "Tallowfen/src/markers/MissedSolid.h"
#include "Tallowfen/src/markers/RingSizes.h"
#include "platform/Console.h"

namespace kestrune {
namespace {

using List = std::vector<Ellipse>;

constexpr std::size_t kSolidCount = 1;

/// One decision in progress. The cases are tried in turn; a check that cuts a list cuts it for the cases behind it too.
struct Decision {
  const MarkerContext* context;
  EllipsesByClass* lists;
  MarkerSizes* sizes;
  RingSizes by_size;
  List rest = {};  ///< Unknowns that were no solid ring; each search adds its own.

  bool areRings(List& list) const { return MarkerCountCheck(context->binary_image, list, kRingCount); }
  bool isSolid(List& list) const { return MarkerCountCheck(context->binary_image, list, kSolidCount); }
};

bool settle(Decision& decision, const List& rings, const List& solids, std::initializer_list<const List*> to_dots,
            MarkerSizes sizes) {
  EllipsesByClass& lists = *decision.lists;
  for (const List* list : to_dots) lists.dots.insert(lists.dots.end(), list->begin(), list->end());
  lists.rings = rings;
  lists.solids = solids;
  decision.sizes->rings_small = sizes.rings_small;
  decision.sizes->solid_big = sizes.solid_big;
  return true;
}

bool settleSmall(Decision& decision, const List& solids, std::initializer_list<const List*> to_dots) {
  return settle(decision, decision.by_size.small_rings, solids, to_dots, {.rings_small = true, .solid_big = false});
}

bool settleBig(Decision& decision, std::initializer_list<const List*> to_dots) {
  return settle(decision, decision.by_size.big_rings, decision.by_size.big_solids, to_dots,
                {.rings_small = false, .solid_big = true});
}

bool allSmall(Decision& decision) {
  RingSizes& found = decision.by_size;
  if (!decision.isSolid(found.small_solids) || !decision.areRings(found.small_rings)) return false;
  return settleSmall(decision, found.small_solids, {&found.big_rings, &found.big_solids});
}

bool allBig(Decision& decision) {
  RingSizes& found = decision.by_size;
  if (!decision.isSolid(found.big_solids) || !decision.areRings(found.big_rings)) return false;
  return settleBig(decision, {&found.small_rings, &found.small_solids});
}

/// Position of the small solid ring with the greatest size against its dots. Meant: the size is that of the same
/// position in the list of all solid rings, not of the small ones.
std::size_t largestAgainstDots(const Decision& decision) {
  const List& small_solids = decision.by_size.small_solids;
  std::vector<double> ratios;
  for (std::size_t i = 0; i < small_solids.size(); ++i) {
    const double dot_size = MeanSemiAxisNear(decision.context->nearby, decision.lists->dots, small_solids[i]);
    ratios.push_back(decision.lists->solids[i].semi_a / dot_size);
  }
  std::vector<int> order;
  cv::sortIdx(ratios, order, cv::SORT_EVERY_ROW | cv::SORT_ASCENDING);
  return static_cast<std::size_t>(order.back());
}

bool severalSmallSolids(Decision& decision) {
  RingSizes& found = decision.by_size;
  if (found.small_solids.size() < 2 || !decision.areRings(found.small_rings)) return false;
  const List solid = {found.small_solids[largestAgainstDots(decision)]};
  return settleSmall(decision, solid, {&found.big_rings, &found.big_solids});
}

void lookForMissed(Decision& decision, const List& rings, MissedSolidPlace place, List& solids) {
  if (!solids.empty()) return;
  findMissedSolids(decision.context->nearby, decision.lists->dots, decision.lists->unknowns, rings, place, solids,
                   decision.rest);
}

bool missedSmallSolid(Decision& decision) {
  RingSizes& found = decision.by_size;
  if (!decision.areRings(found.small_rings)) return false;
  lookForMissed(decision, found.small_rings, MissedSolidPlace::kSmallQuarterWay, found.small_solids);
  if (!decision.isSolid(found.small_solids)) return false;
  return settleSmall(decision, found.small_solids, {&found.big_rings, &found.big_solids, &decision.rest});
}

bool missedBigSolid(Decision& decision) {
  RingSizes& found = decision.by_size;
  if (!decision.areRings(found.big_rings)) return false;
  lookForMissed(decision, found.big_rings, MissedSolidPlace::kBigBetween, found.big_solids);
  if (!decision.isSolid(found.big_solids)) return false;
  return settleBig(decision, {&found.small_rings, &found.small_solids, &decision.rest});
}

bool mixedSizes(Decision& decision) {
  RingSizes& found = decision.by_size;
  if (!decision.areRings(found.small_rings)) return false;
  lookForMissed(decision, found.small_rings, MissedSolidPlace::kBigBeyond, found.big_solids);
  if (!decision.isSolid(found.big_solids)) return false;
  return settle(decision, found.small_rings, found.big_solids, {&found.big_rings, &found.small_solids, &decision.rest},
                {.rings_small = true, .solid_big = true});
}

bool lookAgain(Decision& decision) {
  EllipsesByClass& lists = *decision.lists;
  takeLargeDotsNearOutline(decision.by_size.small_rings, lists.dots, lists.unknowns);
  return missedSmallSolid(decision) || missedBigSolid(decision) || mixedSizes(decision);
}

}  // namespace

bool SplitRingsBySize(const MarkerContext& context, EllipsesByClass& lists, MarkerSizes& sizes) {
  if (lists.rings.empty()) return false;
  Decision decision{&context, &lists, &sizes, sortRingsBySize(context.nearby, lists)};
  if (allSmall(decision) || allBig(decision) || severalSmallSolids(decision) || lookAgain(decision)) return true;
  console::err() << "Not enough rings and solidrings:  \n";
  return false;
}

}  // namespace kestrune
