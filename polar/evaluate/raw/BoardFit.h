#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polar/evaluate/raw/DistanceTables.h"
#include "polar/geometry/CameraPairModel.h"
#include "polar/results/PairFigures.h"

/// The camera that the fitted board is projected with.
struct LeftCamera {
  const cv::Mat& K;
  const CameraPairModel& model;
};

/// Fits the true board onto the measured points, `pairPoints` of the figures, stores the four fit figures, projects the
/// fitted board into the left image and compares it with what was seen there: gives each point's distance in pixels and
/// writes it to the board check table. `truth` holds the true position of each point. `projected`, for observers, gets
/// the fitted board's pixels; may be null.
std::vector<double> fitAndProject(PairFigures& figures, const std::vector<cv::Point3f>& truth, const LeftCamera& camera,
                                  DistanceTables& tables, std::vector<cv::Point2f>* projected = nullptr);

/// Root mean square of the distances that are not above `limit`; NaN without any. Pixels.
float projectionRms(const std::vector<double>& distances, double limit);
