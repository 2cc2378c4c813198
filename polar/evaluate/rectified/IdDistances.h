#pragma once

#include <cstdint>
#include <vector>

#include "polar/results/PairRecords.h"
#include "polar/results/PairStatus.h"

/// Distance errors of configured pairs of ids: the distance in the cloud less the true one, board unit. Prints the
/// first missing point and stops there with `kGroupPointMissing`; later entries of `id_dis` then keep their values.
/// `std::out_of_range` for an entry without two ids or an id that the board does not have.
PairStatus evaluateIdDistances(const std::vector<std::vector<std::int32_t>>& groups,
                               const std::vector<CloudPoint>& cloud, const std::vector<cv::Point3f>& board,
                               std::vector<double>& id_dis);
