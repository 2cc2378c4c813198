#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "board/describe/MarkerRules.h"
#include "board/marks/DetectorConfig.h"
#include "polarline/board.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

constexpr int kFewestDots = 3;    ///< A row or column that has a marker's whole block.
constexpr int kMostDots = 65536;  ///< Ids hold 16 bits.
/// Pitches, board unit. Beyond them single precision and whole numbers, which the detector works with, hold no board.
constexpr double kFinest = 1e-9, kCoarsest = 1e9;

/// Throws unless the condition holds; the text says what was found and what is wanted, or why it can't work.
void require(bool holds, const std::string& text) {
  if (!holds) throw InputError("board", text);
}

void checkGrid(const BoardDescription& board) {
  require(board.cols >= kFewestDots && board.rows >= kFewestDots,
          fmt::format("found {} columns and {} rows, wanted at least {} of each", board.cols, board.rows, kFewestDots));
  require(static_cast<long long>(board.cols) * board.rows <= kMostDots,
          fmt::format("{} x {} dots; ids are told apart up to {} dots", board.cols, board.rows, kMostDots));
  const auto is_pitch = [](double step) { return step >= kFinest && step <= kCoarsest; };
  require(is_pitch(board.step), fmt::format("found step {}, wanted {} to {}", board.step, kFinest, kCoarsest));
  require(board.step_y == 0.0 || is_pitch(board.step_y),
          fmt::format("found step_y {}, wanted {} to {}, or 0 for that of a row", board.step_y, kFinest, kCoarsest));
  require(!boards::isRingBoard(board) || boards::rowStep(board) == board.step,
          fmt::format("step_y {} beside step {}: only big dot boards have a pitch of the rows of its own", board.step_y,
                      board.step));
}

void checkRadii(const std::string& name, const BoardMarkRadii& radii, double dot, double least, double most) {
  const bool nested = radii.core >= 0.0 && radii.core <= radii.hollow && radii.hollow < radii.outer;
  require(nested, fmt::format("{}: found core {}, hollow {}, outer {}; each wanted smaller than the next", name,
                              radii.core, radii.hollow, radii.outer));
  const double ratio = radii.outer / dot;
  require(ratio >= least && ratio <= most,
          fmt::format("{} of radius {} beside dots of radius {}: found a ratio of {:.2f}, wanted {} to {}", name,
                      radii.outer, dot, ratio, least, most));
}

/// The detector takes rings of one to two times the dots for small, beyond that for big; a printed dot grows a little.
void checkSizes(const BoardDescription& board) {
  constexpr double kLeastDot = 0.15;
  constexpr double kMostDot = 0.42;
  constexpr double kLeastSmall = 1.1;
  constexpr double kMostSmall = 1.9;
  constexpr double kLeastBig = 2.15;
  constexpr double kMostBig = 5.0;
  constexpr double kLeastBigDot = 1.18;
  constexpr double kMostBigDot = 2.5;
  const double dot = board.dot_radius;
  require(dot >= kLeastDot && dot <= kMostDot,
          fmt::format("found dots of radius {} pitches, wanted {} to {}", dot, kLeastDot, kMostDot));
  const kestrune::MarkerSizes sizes = boards::markerSizes(board);
  if (sizes.big_dot_board) return checkRadii("big dots", board.big_dot, dot, kLeastBigDot, kMostBigDot);
  if (sizes.rings_small) checkRadii("small rings", board.small_ring, dot, kLeastSmall, kMostSmall);
  if (!sizes.rings_small) checkRadii("big rings", board.big_ring, dot, kLeastBig, kMostBig);
  if (sizes.solid_big) checkRadii("big solid ring", board.big_solid, dot, kLeastBig, kMostBig);
  if (!sizes.solid_big) checkRadii("small solid ring", board.small_solid, dot, kLeastSmall, kMostSmall);
}

/// The detector keeps land marks in 16 bits.
void checkLandMarks(const BoardDescription& board) {
  constexpr int kMost = 65535;
  const boards::LandMarkUnit unit = boards::landMarkUnit(board);
  for (const BoardPlace& mark : board.land_marks) {
    require(mark.column <= kMost / std::max(unit.x, 1) && mark.row <= kMost / std::max(unit.y, 1),
            fmt::format("a land mark at ({}, {}) can't be told to the detector: found {} units for each column and {} "
                        "for each row, wanted at most {} in all",
                        mark.column, mark.row, unit.x, unit.y, kMost));
  }
}

void checkNumbering(const BoardDescription& board) {
  const bool big_dots_only = board.numbering == BoardNumbering::kGrowth && board.land_marks.empty();
  require(!boards::isRingBoard(board) || big_dots_only, "ring boards have no land marks and no numbering by search");
  require(board.land_marks.empty() || board.land_marks.size() == kestrune::kBigDotCount,
          fmt::format("found {} land marks, wanted 4", board.land_marks.size()));
  if (board.numbering != BoardNumbering::kSearch) return;
  constexpr double kLeastStep = 9.0;
  require(board.step_y != 0.0,
          "numbering by search wants step_y written out, as it takes a 0 for the pitch of the rows");
  const auto fits = [](double step) { return step == std::floor(step) && step >= kLeastStep; };
  require(fits(board.step) && fits(board.step_y),
          fmt::format("found step {} and step_y {}; numbering by search wants whole numbers of 9 and more, as it cuts "
                      "them and searches 8 units around each place",
                      board.step, board.step_y));
}

}  // namespace

void checkBoard(const BoardDescription& board) {
  checkGrid(board);
  checkSizes(board);
  checkNumbering(board);
  checkLandMarks(board);
  boards::checkMarkers(board);
}

}  // namespace polarline
