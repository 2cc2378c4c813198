#include "check/init/Warnings.h"

#include <algorithm>

#include "diagnose/warnings/Codes.h"

namespace init {

const warnings::Table& warningCodes() {
  static const warnings::Table codes = {
      {"pictures_alone", "Some pictures have no partner on the other side and are not in the set.",
       "Look at their names; with --pairing the way of pairing can be chosen."},
      {"pairs_guessed", "The names of the two sides do not agree; the pictures were paired in their order.",
       "Look at the first and the last line of list.txt; --pairing order says that the order is right."},
      {"pairs_shifted", "The two sides count from different starts, so their numbers may mean different moments.",
       "If the first pictures of both sides belong together, use --pairing order."},
      {"pictures_linked",
       "Some pictures can't be named in an image list; links with other names stand in the set for them.",
       "Keep the pictures where they are, or use --copy."},
      {"residuals_off", "Pictures with more than one channel end the step of the residuals, so it is switched off.",
       "Store the pictures grey, then set triangulate_residual_switch to 1."},
      {"unequal_steps",
       "The board's rows and columns have different steps; the spacing of the point cloud knows one only.",
       "Set allpoints_calc_switch to 1 to have it all the same."},
      {"board_at_width", "Boards of this kind are not found in pictures of this width.",
       "Use a big dot board, or pictures of another width."},
      {"board_size", "The pictures show another number of columns or rows of dots than the board is described with.",
       "Correct rows and cols of the target (init: --board KIND:COLSxROWS:STEP), as the picture shows the board "
       "upright; "
       "until then dots bear the numbers of others."},
      {"board_step", "The dots stand at other distances from each other than the board is described with.",
       "Measure the printed board over many dots and give its step (init: --board KIND:COLSxROWS:STEP); if that is "
       "right, "
       "the translation of the calibration is wrong by the same share, or in other units (--scale)."},
      {"board_kind", "More dots were found than a board of the described kind lets be numbered.",
       "Describe the board that was printed: big rings cover dots beside them, small ones do not."},
      {"board_not_found", "The board was not found in the first pair.", "See why: polarline detect."},
      {"dots_missing", "In the first pair many dots of the board were not found.",
       "See which: polarline detect. The whole board should be in both pictures, lit evenly."},
      {"dots_small", "The dots are too small in the pictures to be found reliably.",
       "Go nearer, use a board with larger dots, or a camera with more pixels."},
      {"dots_large", "The dots are too large in the pictures to be found reliably.",
       "Go further away, or use a board with smaller dots."},
      {"corner_points", "The four chosen points were moved inward, or are not all seen.",
       "A pair that does not show all four is given up: choose TriPoint and PolPoint ids that every pair shows."},
  };
  return codes;
}

polarline::Warning warning(const std::string& code, const std::string& text, int pair) {
  const bool is_own =
      std::ranges::any_of(warningCodes(), [&](const warnings::Code& each) { return each.code == code; });
  return is_own ? warnings::make(warningCodes(), code, text, pair) : diagnose::warning(code, text, pair);
}

}  // namespace init
