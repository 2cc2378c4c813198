#pragma once

#include <optional>

#include "board/marks/BoardMarks.h"

namespace boards {

/// The marker at which the numbering begins: the first around which a whole block of nine stands, each place with one
/// point only. Beside big markers the detector makes up the covered dots, and if the solid ring is big beside small
/// ones, too, where a dot stands already. None if there is no such marker.
std::optional<Marker> seedMarker(const polarline::BoardDescription& board);

}  // namespace boards
