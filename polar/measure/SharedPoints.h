#pragma once

#include "polar/results/PairRecords.h"

/// Adds a detected point; the first one of an id stays.
void keepFirst(PointsById& points, std::int32_t id, const cv::Point2f& pixel);

/// Appends the points of the ids that both maps hold to the two lists, in ascending id.
void appendShared(MeasuredPair& pair);

/// Drops from both maps the ids that the other lacks.
void dropUnshared(MeasuredPair& pair);
