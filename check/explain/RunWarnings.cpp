#include <array>

#include "check/explain/Tables.h"

namespace polarline {
namespace {

constexpr auto kRunWarnings = std::to_array<Entry>({
    {"unknown_key", "unknown_key", "The polar configuration has a key that nothing reads.",
     "Compare its spelling with docs/formats/polar_configuration.md: some names have letters that one would not "
     "expect. Or take the line out."},
    {"no_board_truth", "no_board_truth",
     "The set has no true positions of the dots, so that distances and the fit of the board are not judged.",
     "Write board_gt.txt: x y z of each dot, by id."},
    {"board_truth_short", "board_truth_short", "The set has fewer true positions than the board has dots.",
     "Write a line x y z for each dot, by id; the file may have been cut off."},
    {"steps_differ", "steps_differ",
     "The target, the polar configuration and the true positions do not tell the same distance between neighbouring "
     "dots.",
     "Measure it on the board over many dots, and write it as step (and step_y) of the target and as pattern_step; "
     "write board_gt.txt anew."},
    {"picture_size", "picture_size", "The pictures are not of one size, or not of the size that the calibration tells.",
     "Take the pictures of one pair of cameras, and the calibration of these cameras at this size."},
    {"colour_pictures", "colour_pictures", "The pictures have colour; the residual step takes grey ones only.",
     "Convert them to grey, or set triangulate_residual_switch to 0."},
    {"picture_cut_off", "picture_cut_off", "A picture lacks its end; grey stands where its last rows should be.",
     "Copy the picture again from the camera."},
    {"calibration_member", "calibration_member",
     "The calibration lacks numbers of a camera or of the pose, and 0 stands for each.",
     "Write the numbers that the text names; docs/formats/calibration_json.md has them all. A lens without such a "
     "coefficient has 0."},
    {"two_poses", "two_poses",
     "The calibration has the pose of a depth camera beside that of the infra-red pair; the library then reads neither "
     "and takes both cameras for one that stands still.",
     "Take Depth2RGB_Rotate and Depth2RGB_Trans out, or IR_L and IR_R."},
    {"no_baseline", "no_baseline", "The calibration says that both cameras stand in one place.",
     "Write the pose of the right camera against the left one: TX is its distance with a minus."},
    {"bad_value", "bad_value",
     "A value of the polar configuration is not what its key wants; of one that begins with a number that number is "
     "taken, for any other 0, or what the key stands at without a line.",
     "Mend the line that the text names; docs/formats/polar_configuration.md tells what each key takes."},
    {"missing_key", "missing_key",
     "The polar configuration lacks a key that an evaluation reads, or the switch of one; what the key stands at "
     "without "
     "a line, mostly 0, is taken.",
     "Look whether the file is whole: it may have been cut off. Write the keys that the text names, switches that are "
     "meant to be off with 0."},
    {"bad_line", "bad_line", "A line of the polar configuration is neither blank, comment nor 'key: value'.",
     "Mend or remove the line; the file may have been cut off there."},
    {"no_type", "no_type", "The polar configuration does not name the lens model, and Brown with K1 to K3 is taken.",
     "Write 'type: 1' (Brown with K1 to K6), or the number of the model of these lenses: "
     "docs/formats/polar_configuration.md has them."},
    {"unused_coefficients", "unused_coefficients",
     "The calibration has coefficients of the lenses that the model named by type does not take.",
     "Set type to the model that the calibration was made with: 1 takes K1 to K6, P1 and P2, 0 leaves K4 "
     "to K6 out, 2 (fisheye) takes K1 to K4 alone."},
    {"no_evaluation", "no_evaluation",
     "The polar configuration names no evaluation, so that hardly a figure is measured.",
     "Look whether the file is whole; write the switches that docs/formats/polar_configuration.md lists, "
     "such as dy_bias_switch: 1."},
    {"turned_rows", "turned_rows",
     "x_y turns the rectified pictures by a quarter, though the cameras stand side by side: what is told as row "
     "differences are the disparities.",
     "Set x_y to 0; 1 is for cameras above each other."},
    {"same_picture", "same_picture", "A line of the list names one picture for both sides.",
     "Name the picture of each camera; figures of such a pair say nothing."},
    {"byte_order_mark", "byte_order_mark",
     "A byte order mark, which can't be seen, stands before the first key of the polar configuration, and "
     "nothing reads that key.",
     "Save the file as UTF-8 without the mark, or begin it with a line of comment."},
    {"signed_limit", "signed_limit", "A limit judges a figure with a sign from one side only.",
     "Put the name between bars, which take the size of a value, or add a limit from the other side."},
    {"not_a_number", "not_a_number",
     "A figure of a finished pair can't be computed: nothing is left that it could be computed from.",
     "With the calibration of other cameras, or another type, points come to lie at infinity or behind the cameras: "
     "see whether Fx, Cx, K1 to K6 and TX of the calibration are those of these cameras. A limit on such a figure does "
     "not hold."},
    {"pairs_given_up", "pairs_given_up", "Some pairs were given up, and no limit judges how many.",
     "Read the reason of each; with --limit 'given_up<=0' such a check fails."},
    {"nothing_to_correct", "nothing_to_correct", "No corrected calibration was written, as no cause was found.",
     "Keep the calibration; the diagnosis says what else the row differences come from."},
    {"correction_no_better", "correction_no_better",
     "No corrected calibration was written, as the set checked again with it has no smaller row differences.",
     "Keep the calibration. Take more pairs, at two distances and with the board tilted, or calibrate anew."},

    {"refining_failed", "refining_failed", "A finished pair has no refined figures.",
     "Look at its figures from detected centres; the text says what the refined ones lack."},
    {"few_refined", "few_refined",
     "Less than half of a picture's dots could be refined; the others stand where they were detected, in the refined "
     "figures, too.",
     "Bring the whole board into view, sharp and without glare; a dot should be about 10 pixels wide in pictures of up "
     "to 640 columns, 13 up to 2047, and from 2048 on 20 of rings or 25 of big dots."},

    {"dots_too_small", "dots_too_small", "The dots are smaller in the picture than the detector is sure of.",
     "Move the board nearer, or take a board with fewer and larger dots."},
    {"dots_too_large", "dots_too_large", "The dots are larger in the picture than the detector takes.",
     "Move the board away, or take a board with smaller dots."},
    {"fewer_than_six", "fewer_than_six", "Fewer than six dots were numbered; a run measures no such picture.",
     "Bring more of the board into view."},
    {"mirrored_board", "mirrored_board", "The dots are numbered the other way round than the board's.",
     "Take the picture as the camera sees it, or print the board as it was drawn: one of them is mirrored."},
    {"marker_span", "marker_span", "The markers span another number of columns or rows than the target says.",
     "Correct inner_width and inner_height of the target: until then all numbers are shifted."},
});

}  // namespace

std::span<const Entry> warningEntries() { return kRunWarnings; }

}  // namespace polarline
