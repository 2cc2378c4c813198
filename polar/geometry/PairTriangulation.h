#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polar/geometry/CameraPairModel.h"
#include "polar/results/PairObservation.h"
#include "polar/results/PairRecords.h"

/// The shared points of a pair, triangulated. All lists are in the order of the measured lists.
struct TriangulatedPair {
  std::vector<PairPointRecord> records;      ///< Id, pixels and left-frame point filled, nothing else.
  std::vector<cv::Point3f> points_left;      ///< Left camera frame, board unit.
  std::vector<cv::Point2f> predicted_right;  ///< Raw pixel at which the right camera should see the point.
};

/// Triangulates every shared point. The k-th record takes the k-th id of the left map: after a detection that keeps
/// unpaired ids these run ahead of the points, which is meant.
TriangulatedPair triangulateShared(const MeasuredPair& pair, const EvaluationCameras& cameras,
                                   const CameraPairModel& model);

/// For observers. All matrices are full, of doubles.
SeenCameras seenCameras(const EvaluationCameras& cameras);
