#pragma once

#include <vector>

#include "tools/accuracy/Statistics.h"

namespace accuracy {

/// The grey-value centroid around each true place: of what the ink takes off the paper within 1.25 radii.
std::vector<Measured> centroids(const Sight& sight);

/// What `cv::findCirclesGrid` gives, each centre with the id of the true dot nearest to it. It looks for equal dots in
/// a whole grid, so it is shown a part of the picture that holds nothing but plain dots; empty where it finds none.
std::vector<Measured> circlesGrid(const Sight& sight);

}  // namespace accuracy
