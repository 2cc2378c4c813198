#include <array>

#include "check/explain/Tables.h"
#include "polar/evaluate/raw/CountedErrors.h"

namespace polarline {
namespace {

static_assert(kLargestResidual == 5.0, "two of the texts below tell it");

constexpr auto kStatuses = std::to_array<Entry>({
    {"0", "success", "The run came to its end with at least one finished pair.", ""},
    {"1", "input_unreadable", "The image list could not be read, or a polynomial table is missing.",
     "Compare the list with docs/formats/image_list.md: a header line '#L R', then two file names a line."},
    {"3", "bad_reference_point", "A reference point of the polar configuration is not three numbers.",
     "Write TriPoint1_GT to TriPoint4_GT and PolPoint1_GT to PolPoint4_GT as [x,y,z], without blanks."},
    {"4", "calibration_type", "The name of the calibration file ends in neither 'json' nor 'bin'.",
     "Rename the file, or make one with 'polarline import'."},
    {"7", "file_missing", "A named file is not there.", "Check the path."},
    {"8", "no_figures", "The run ended without one finished pair.",
     "Read the reason of each pair; 'polarline detect IMAGE --target FILE' shows what is seen in one picture."},
    {"35", "interrupted", "The run was stopped from outside.", "Run it again."},
    // What the system says of a file that does not open, the loader of binary calibrations passes on.
    {"2", "calibration_absent", "The binary calibration file does not open: it is not there.", "Check the path."},
    {"5", "calibration_disk", "The binary calibration file does not open: the disk can't be read.",
     "Copy the file from elsewhere; the disk or its connection may be failing."},
    {"13", "calibration_denied", "The binary calibration file does not open: it may not be read.",
     "Give the right to read it, and to enter the folders above it."},
    {"20", "calibration_below_file", "The binary calibration file does not open: a name in its path is no folder.",
     "Check the path."},
    {"21", "calibration_folder", "The binary calibration file does not open: it is a folder.", "Name the file in it."},
    {"23", "system_files", "The binary calibration file does not open: the system has too many open files.",
     "Try again when other programs have ended."},
    {"24", "process_files", "The binary calibration file does not open: the program has too many open files.",
     "Close files that are open, or raise the limit of open files."},
    {"36", "calibration_name", "The binary calibration file does not open: its name is too long.",
     "Give it a shorter name."},
    {"40", "calibration_links", "The binary calibration file does not open: its links lead in a circle.",
     "Name the file itself, or mend the links."},
    {"110", "calibration_late", "The binary calibration file does not open: the network did not answer in time.",
     "Try again when the drive can be reached."},
    {"116", "calibration_stale", "The binary calibration file does not open: the network drive no longer knows it.",
     "Mount the drive anew and try again."},
    {"4096", "null_argument", "The loader of binary calibrations was given nothing.", "This is a fault of the caller."},
    {"4097", "wrong_checksum", "A check sum of the binary calibration file is wrong: the file is damaged.",
     "Write or copy the file again."},
    {"4098", "not_supported", "The binary calibration file is of a form that is not read, or is cut off.",
     "Compare it with docs/formats/calibration_binary.md."},
    {"-1", "no_core",
     "There was no memory for the run; of the computation of compensation coefficients: the polar "
     "configuration could not be read.",
     "Close other programs and run it again."},
    {"-2", "compensation_calibration", "The computation of compensation coefficients could not read the calibration.",
     "See docs/formats/calibration_json.md."},
    {"-3", "compensation_list", "The computation of compensation coefficients could not read the image list.",
     "See docs/formats/image_list.md."},
    {"-4", "calibration_unreadable",
     "The JSON calibration does not open or has no pair of cameras; of the computation of compensation coefficients, "
     "behind its inputs: it failed.",
     "It needs IR_L, IR_R and RGB, or DEPTH and RGB: see docs/formats/calibration_json.md."},
    {"-5", "target_unusable", "The description of the board could not be loaded.",
     "See docs/formats/target_configuration.md."},
    {"-6", "too_few_detected", "Fewer than 6 dots were numbered in a picture.",
     "Look at the picture with 'polarline detect IMAGE --target FILE': it names the step that failed."},
    {"-7", "result_folder", "A folder for results could not be made.",
     "Check that the folder above is there, may be written, and has no blank in its name."},
    {"-8", "pictures_unusable", "The set is not two lists of pictures, or a picture could not be decoded.",
     "Open the picture in a viewer; copy it again from the camera if it is cut off."},
    {"-9", "too_few_shared", "The two pictures share too few dots, or no residual could be taken.",
     "Both cameras must see the board: move it into the common field. If both see it, compare calibration and "
     "pictures: a wrong pair gives residuals above 5 pixels, which do not count."},
    {"-9 in a pair", "few_dots_in_both", "The two pictures share too few dots.",
     "Both cameras must see the board: move it into the common field."},
    {"-9 of residuals", "no_residual", "No residual could be taken: all are above 5 pixels, and such do not count.",
     "Compare calibration and pictures: exchanged sides, the calibration of other cameras and dots that are numbered "
     "wrongly give such residuals."},
    {"-10", "point_missing", "One of the four chosen dots was not seen in both pictures, or lies at the origin.",
     "Choose dots that are always in view (TriPoint1_ID ... PolPoint4_ID), or switch the four-point distances off."},
    {"-11", "no_tables", "type 3 needs the polynomial tables of both cameras, and they are not there.",
     "Use the binary calibration, or set type to the model of the lenses."},
    {"-13", "outlier", "A dot stands out from the fit of the board, so that the pair was given up.",
     "Look at the dot that the text names: it may be covered, dirty or numbered wrongly."},
    {"1 in a pair", "measurement_failed", "The measurement of the rectified pair failed.",
     "Look at the rectified pictures (savepolarline: 1 and --out): a wrong calibration or f_scale warps them out of "
     "view."},
    {"12", "group_point_missing", "A dot of a Cal_ID_DIS pair was not seen in both pictures.",
     "Choose pairs of dots that are always in view."},
    {"exception", "exception", "A library below ended the run with an exception, whose text is told.",
     "Look at the pictures of the pair that the text names with 'polarline detect IMAGE --target FILE', and at what "
     "the "
     "polar configuration switches on beyond the usual."},
    {"input", "input_unusable", "An input could not be used; the text names the file and what was wanted.",
     "Mend what the text names."},
    {"nothing_measured", "nothing_measured", "The pairs were finished, and no evaluation gave a figure.",
     "Switch on what is wanted, such as dy_bias_switch: 1; in a frame run name points and distances (Frame_ID, "
     "Frame_3D, "
     "Frame_IRL, Frame_IRR, Frame_ID_DIS)."},
    {"no_diagnosis", "no_diagnosis", "The run has no row differences to diagnose.",
     "Diagnose a set of raw or rectified pairs: frames have no row differences."},
    {"output", "not_written", "A result could not be written.",
     "Check that the folder is there, may be written and has space left."},
});

}  // namespace

std::span<const Entry> statusEntries() { return kStatuses; }

}  // namespace polarline
