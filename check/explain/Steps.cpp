#include <array>

#include "check/explain/Tables.h"

namespace polarline {
namespace {

constexpr auto kSteps = std::to_array<Entry>({

    {"image", "image", "Step of a detection: the picture or the target can't be used.",
     "Give an 8-bit or 16-bit picture that decodes, and a target that loads."},
    {"contours", "contours", "Step of a detection: the two-valued picture has no outline.",
     "Give more light and contrast; look at the two-valued picture."},
    {"ellipses", "ellipses", "Step of a detection: no outline became an ellipse.",
     "Bring the board into focus and nearer, and view it less slanted."},
    {"markers", "markers", "Step of a detection: the board's markers were not recognised.",
     "Uncover the markers, and compare the board_type of the target with the board."},
    {"arrangement", "arrangement", "Step of a detection: the markers don't stand as the board's do.",
     "Compare the rectangles and land marks of the target with the board."},
    {"seed", "seed",
     "Step of a detection: no marker has a whole block of 3 x 3 dots around it to begin the numbering with.",
     "Uncover the dots around one marker at least."},
    {"growth", "growth", "Step of a detection: the numbering from the seed gave no point.",
     "View the board less slanted, and compare the target with it."},
    {"search", "search", "Step of a detection: too few ellipses stand in the board's grid.",
     "Compare rows, cols, step and land marks of the target with the board."},
    {"filter", "filter",
     "Step of a detection: all numbered dots were taken out by the ids or the region that are wanted.",
     "Look at detection_id and detection_switch of the target."},
    {"pairs", "pairs", "A count that a limit may judge: the pairs that were looked at.",
     "'pairs>=10' asks for ten pairs at least."},
    {"finished", "finished", "A count that a limit may judge, and the state of a pair that has figures.",
     "'finished>=10' asks for ten such pairs at least."},
    {"given_up", "given_up",
     "A count that a limit may judge: the pairs that were given up, of which no figure is judged.",
     "'given_up<=0' asks for none; the reason of each stands in the table and in the document."},
    {"carried", "carried",
     "Figures that a pair did not measure itself: the library's own record keeps those of the pair before.",
     "Look at the pairs that measured them; the document has null for such figures."},
    {"pass", "pass",
     "A verdict: the run has figures, and every limit holds. Without limits it says no more than that there are "
     "figures.",
     "See in 'judged' of the document how many limits it rests on."},
    {"fail", "fail", "A verdict: the run has figures, and a limit does not hold.",
     "Look at the limits that the table marks, and at the pair that is named with each."},
    {"error", "error", "A verdict: the run has no figures that could be judged, or did not come to its end.",
     "Read the status of the run: it says why and what to do."},
    {"retry", "retry", "In a status: it may succeed when it is tried again, as nothing of the set is at fault.",
     "Run it again when the drive can be reached or has space."},
    {"triangulation", "triangulation",
     "Evaluation of the raw pair: its dots in space, residuals, distances and the fit of the board.",
     "triangulate_residual_switch, triangulate_dis_switch and discalswitch of the polar configuration switch it."},
    {"rows", "rows", "Evaluation of the rectified pair: the row differences (dy_means, dy_max).",
     "dy_bias_switch of the polar configuration switches it."},
    {"cloud", "cloud", "Evaluation of the rectified pair: its points in space by their disparities, and distances.",
     "foursixmethod_swithch and allpointssavecsv_swithch of the polar configuration switch it."},
});

}  // namespace

std::span<const Entry> stepEntries() { return kSteps; }

}  // namespace polarline
