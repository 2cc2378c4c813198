#pragma once

#include <vector>

#include "tools/scene/Board.h"

namespace scene {

/// Which ids a numbering that grows from dot to dot can give on this board, the whole board in view.
struct ReachableIds {
  std::vector<int> reached;  ///< Every id that can be found, `made_up` included.
  std::vector<int> made_up;  ///< Empty places beside the solid ring, taken as midpoints of the dots around: no ink
                             ///< there, up to a pixel off.
};

/// Small rings and big dots: all. Big rings: each ring's own centre and the four places that it covers stay out of
/// reach. Mixed: as small rings; beside each small ring a dot may be lost to a made-up one that lies nearer, which is
/// chance and not told here.
ReachableIds reachableIds(const Board& board);

}  // namespace scene
