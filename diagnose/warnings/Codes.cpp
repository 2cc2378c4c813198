#include "diagnose/warnings/Codes.h"

namespace diagnose {

const warnings::Table& warningCodes() {
  static const warnings::Table codes = {
      {"sides_exchanged", "The pictures show the right camera on the other side of the left one than the calibration.",
       "Exchange the columns L and R of the list (init: --left and --right), or the cameras of the calibration "
       "(import: "
       "--swap) if it has them the wrong way round."},
      {"baseline_unit", "The pictures show another distance of the cameras than the calibration says.",
       "Look at the units of board and calibration: --scale of import and init tells board units in a unit of the "
       "calibration."},
      {"scale_wrong",
       "All distances come out larger or smaller by the same share: board or baseline has a wrong length.",
       "Measure the printed board over many dots and compare it with step in the target; if it is right, the "
       "translation "
       "of the calibration is wrong by that share."},
      {"board_mismatch", "The dots do not stand in the pictures as those of the described board would.",
       "Either the board is another one: compare rows, cols, step, step_y and board_type of the target, and the true "
       "positions, with it; 'polarline detect IMAGE --target FILE' shows the numbers. Or the calibration is of other "
       "cameras: then other pictures of these cameras, with another board, show the same."},
      {"calibration_mismatch", "The board's image through the calibrated lens does not meet the dots in the pictures.",
       "Take the calibration of these cameras, made with pictures of the same size, cut and orientation; type of the "
       "polar configuration must name its lens model."},
      {"lenses_exchanged",
       "The dots of both pictures meet the board better through the lens of the other camera than through their own.",
       "Exchange the lenses of the two cameras (IR_L and IR_R) in the calibration, and leave its pose, which is that "
       "of the pictures."},
      {"principal_point", "The middle of the lens lies far from the middle of the pictures.",
       "Look whether the calibration was made for pictures of this size."},
      {"fisheye_raw_pair",
       "Residuals, distances and board check of the raw pair take the coefficients of a fisheye for Brown's.",
       "Judge such a pair by its row differences and by the point cloud."},
      {"saturated", "Many pixels around the dots are at the largest value, so that edges move outward.",
       "Shorten the exposure, or take away the reflection."},
      {"too_dark", "The brightest part of the board is dark.", "Expose longer, open the iris, or give more light."},
      {"low_contrast", "Dots and ground differ little.",
       "Give more and even light, shield stray light, or print the board anew."},
      {"blurred", "The edges of the dots are wide.", "Focus the camera on the distance of the board."},
      {"motion_blur", "The edges of the dots are much wider in one direction than across it.",
       "Keep board and cameras still, or shorten the exposure; if they stood still, look at the lens for astigmatism."},
      {"board_small", "The board fills a small part of the picture.", "Go nearer, or take a larger board."},
      {"low_coverage",
       "All pairs together leave most of the picture without a dot; the row figure says nothing of there.",
       "Take pairs with the board in the corners, too, or a larger board."},
      {"one_distance",
       "The board stood at one distance in all pairs, which tells little of scale, focal length and toe-in.",
       "Take some pairs nearer and some farther."},
      {"too_few_dots", "Many of the board's dots were not numbered.",
       "Bring the whole board into view, with even light and without reflections."},
      {"strange_ids", "Dots were numbered that the board does not have.",
       "Keep the board's surround free of specks, and compare the board's description with the board."},
      {"ghost_dots", "Single dots do not stand where the others put them on the board.",
       "Look at them: specks, reflections and half covered dots are taken for dots; clean the board, or cover its "
       "surround."},
      {"pair_stands_out", "A pair has figures far from those of the others.",
       "Look at its pictures: the board or the cameras moved between left and right, or another pair's picture is in "
       "its "
       "place. Leave it out if so."},
      {"noise_floor", "The row differences are hardly more than what the noise of the dots' centres makes.",
       "Give more light, or more and larger dots, and judge with a limit above the noise; such a figure tells the "
       "noise, "
       "not the alignment."},
  };
  return codes;
}

polarline::Warning warning(const std::string& code, const std::string& text, int pair) {
  return warnings::make(warningCodes(), code, text, pair);
}

}  // namespace diagnose
