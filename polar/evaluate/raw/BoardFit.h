#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/raw/DistanceTables.h"
#include "polar/geometry/CameraPairModel.h"

/// Fits the true board onto the measured points, stores the four fit figures, projects the fitted board into the left
/// image and compares it with what was seen there: gives each record's distance in pixels and writes it to the board
/// check table.
std::vector<double> fitAndProject(PairEvaluator& evaluator, const std::vector<PairPointRecord>& records,
                                  const std::vector<cv::Point3f>& truth, const CameraPairModel& model,
                                  DistanceTables& tables);

/// Root mean square of the distances that are not above `limit`; not a number without any. Pixels.
float projectionRms(const std::vector<double>& distances, double limit);
