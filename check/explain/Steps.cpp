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
});

}  // namespace

std::span<const Entry> stepEntries() { return kSteps; }

}  // namespace polarline
