#include "Tallowfen/src/numbering/NumberBoard.h"

#include <cstddef>
#include <ostream>

#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/markers/SelectBigDots.h"
#include "Tallowfen/src/markers/SplitRingsBySize.h"
#include "Tallowfen/src/numbering/GrowGrid.h"
#include "Tallowfen/src/numbering/MarkerIndex.h"
#include "Tallowfen/src/numbering/SearchIndex.h"
#include "platform/Console.h"

namespace kestrune {
namespace {

bool fail(const char* text, const EllipsesByClass& lists) {
  console::err() << cv::format(text, static_cast<unsigned long>(lists.rings.size()),
                               static_cast<unsigned long>(lists.solids.size()));
  return false;
}

bool recogniseMarkers(const RingTargetConfig& config, const MarkerContext& context, EllipsesByClass& lists,
                      MarkerSizes& sizes) {
  if (config.board_type == kBigDotBoard) {
    // Meant: the line counts rings and solid rings, of which such a board has none.
    return SelectBigDots(lists.dots, lists.bigs, sizes) ||
           fail("Invalid big circles at the same size : %lu and %lu(should be 3) \n", lists);
  }
  return SplitRingsBySize(context, lists, sizes) ||
         fail("Invalid rings or solidring number at the same size : %lu and %lu(should be 4 or 1) \n", lists);
}

bool GetCircleIndex(const RingTargetConfig& config, const MarkerSizes& sizes, const EllipsesByClass& lists,
                    std::vector<Ellipse>& all, MarkerSeeds& seeds, NumberedPoints& numbered) {
  if (config.board_type != kBigDotBoard) {
    return GetCircleIndexRings(config, sizes, lists.solids, lists.rings, all, seeds);
  }
  if (config.id_method == kIdsByGrowth) return GetCircleIndexBigDots(config, sizes, lists.bigs, all, seeds);
  if (config.id_method == kIdsBySearch) return GetCircleIndexBySearch(config, lists.bigs, all, seeds, numbered);
  return true;
}

}  // namespace

bool numberBoard(const RingTargetConfig& config, const MarkerContext& context, const std::vector<Ellipse>& ellipses,
                 const cv::Mat& mask, MarkerSizes& sizes, NumberedPoints& numbered) {
  EllipsesByClass lists = sortByClass(ellipses, mask);
  if (!recogniseMarkers(config, context, lists, sizes)) return false;
  // Meant: on a ring board all that was detected is numbered, also what has no class or is masked out.
  std::vector<Ellipse> all = ellipses;
  if (config.board_type == kBigDotBoard) {
    all = lists.dots;
    all.insert(all.end(), lists.bigs.begin(), lists.bigs.end());
  }
  MarkerSeeds seeds;
  if (!GetCircleIndex(config, sizes, lists, all, seeds, numbered)) {
    console::err() << "Failed in GetCircleIndex()\n";
    return false;
  }
  if (config.id_method == kIdsByGrowth && !GrowGrid(config, seeds.seed_indices, all, numbered)) {
    console::err() << "RingTarget:grow neighbor fail\n";
    return false;
  }
  return true;
}

}  // namespace kestrune
