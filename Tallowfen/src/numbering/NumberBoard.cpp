#include "Tallowfen/src/numbering/NumberBoard.h"

#include <cstddef>
#include <ostream>

#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/markers/SelectBigDots.h"
#include "Tallowfen/src/markers/SplitRingsBySize.h"
#include "Tallowfen/src/numbering/GrowGrid.h"
#include "Tallowfen/src/numbering/MarkerIndex.h"
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
    // The line counts rings and solid rings, of which such a board has none.
    return SelectBigDots(lists.dots, lists.bigs, sizes) ||
           fail("Invalid big circles at the same size : %lu and %lu(should be 3) \n", lists);
  }
  return SplitRingsBySize(context, lists, sizes) ||
         fail("Invalid rings or solidring number at the same size : %lu and %lu(should be 4 or 1) \n", lists);
}

bool GetCircleIndex(const RingTargetConfig& config, const MarkerSizes& sizes, const EllipsesByClass& lists,
                    std::vector<Ellipse>& all, Numbering& numbering, NumberedPoints& numbered) {
  if (config.board_type != kBigDotBoard) {
    return GetCircleIndexRings(config, sizes, lists.solids, lists.rings, all, numbering);
  }
  if (config.id_method == 0) return GetCircleIndexBigDots(config, sizes, lists.bigs, all, numbering);
  if (config.id_method == 1) return GetCircleIndexBySearch(config, lists.bigs, all, numbering, numbered);
  return true;
}

}  // namespace

bool numberBoard(const RingTargetConfig& config, const MarkerContext& context, const std::vector<Ellipse>& ellipses,
                 const cv::Mat& mask, MarkerSizes& sizes, NumberedPoints& numbered) {
  EllipsesByClass lists = sortByClass(ellipses, mask);
  if (!recogniseMarkers(config, context, lists, sizes)) return false;
  // A ring board numbers everything that was detected, also what had no class.
  std::vector<Ellipse> all = ellipses;
  if (config.board_type == kBigDotBoard) {
    all = lists.dots;
    all.insert(all.end(), lists.bigs.begin(), lists.bigs.end());
  }
  Numbering numbering;
  if (!GetCircleIndex(config, sizes, lists, all, numbering, numbered)) {
    console::err() << "Failed in GetCircleIndex()\n";
    return false;
  }
  if (config.id_method == 0 && !GrowGrid(config, numbering.seed_indices, all, numbered)) {
    console::err() << "RingTarget:grow neighbor fail\n";
    return false;
  }
  return true;
}

}  // namespace kestrune
