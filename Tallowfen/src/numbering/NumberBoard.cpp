#include "Tallowfen/src/numbering/NumberBoard.h"

#include <cstddef>
#include <ostream>

#include "Tallowfen/src/ellipses/Centres.h"
#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/markers/RingSizes.h"
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

/// Where a numbering that found the markers stopped: their order in the picture is settled before any seed is looked
/// for.
DetectionStep stepOf(const RingTargetConfig& config, const MarkerSeeds& seeds, const NumberedPoints& numbered) {
  if (!numbered.points.empty()) return DetectionStep::kDone;
  const bool chooses = config.board_type == kBigDotBoard;
  if (chooses && config.id_method != kIdsByGrowth && config.id_method != kIdsBySearch) return DetectionStep::kSeed;
  if (seeds.marker_image_points.empty()) return DetectionStep::kArrangement;
  if (chooses && config.id_method == kIdsBySearch) return DetectionStep::kSearch;
  return seeds.seed_indices.empty() ? DetectionStep::kSeed : DetectionStep::kGrowth;
}

void noteClasses(const EllipsesByClass& lists, DetectionTrace& trace) {
  trace.classes = {lists.dots.size(), lists.rings.size(), lists.solids.size(), lists.bigs.size(),
                   lists.unknowns.size()};
}

/// The lists are those before the recognition, which changes them.
void noteRings(const MarkerContext& context, EllipsesByClass lists, DetectionTrace& trace) {
  const RingSizes rings = sortRingsBySize(context.nearby, lists);
  trace.rings = {rings.small_rings.size(), rings.big_rings.size(), rings.small_solids.size(), rings.big_solids.size()};
}

void noteMarkers(const RingTargetConfig& config, const EllipsesByClass& lists, DetectionTrace& trace) {
  std::vector<Ellipse> markers = lists.bigs;
  if (config.board_type != kBigDotBoard) {
    markers = lists.solids;
    markers.insert(markers.end(), lists.rings.begin(), lists.rings.end());
  }
  trace.markers = centresOf(markers);
}

void noteNumbering(const RingTargetConfig& config, const MarkerSeeds& seeds, const NumberedPoints& numbered,
                   DetectionTrace& trace) {
  trace.step = stepOf(config, seeds, numbered);
  trace.fullest_block = seeds.fullest_block;
  trace.matches = seeds.matches;
  trace.numbered = numbered.points.size();
}

}  // namespace

bool numberBoard(const RingTargetConfig& config, const MarkerContext& context, const std::vector<Ellipse>& ellipses,
                 const cv::Mat& mask, MarkerSizes& sizes, NumberedPoints& numbered, DetectionTrace& trace) {
  trace.step = DetectionStep::kMarkers;
  EllipsesByClass lists = sortByClass(ellipses, mask);
  noteClasses(lists, trace);
  if (!recogniseMarkers(config, context, lists, sizes)) {
    if (config.board_type != kBigDotBoard) noteRings(context, sortByClass(ellipses, mask), trace);
    return false;
  }
  noteMarkers(config, lists, trace);
  trace.step = DetectionStep::kArrangement;
  // Meant: on a ring board all that was detected is numbered, also what has no class or is masked out.
  std::vector<Ellipse> all = ellipses;
  if (config.board_type == kBigDotBoard) {
    all = lists.dots;
    all.insert(all.end(), lists.bigs.begin(), lists.bigs.end());
  }
  MarkerSeeds seeds;
  if (!GetCircleIndex(config, sizes, lists, all, seeds, numbered)) {
    noteNumbering(config, seeds, numbered, trace);
    console::err() << "Failed in GetCircleIndex()\n";
    return false;
  }
  if (config.id_method == kIdsByGrowth && !GrowGrid(config, seeds.seed_indices, all, numbered)) {
    console::err() << "RingTarget:grow neighbor fail\n";
    return false;
  }
  noteNumbering(config, seeds, numbered, trace);
  return true;
}

}  // namespace kestrune
