#pragma once

#include "polar/measure/PairMeasurement.h"

/// The light form of the measurement: no board points, no test of the configuration, no least count, and the maps keep
/// the ids that only one image shows. Always succeeds.
PairStatus detectPairPoints(const PairInput& input, MeasuredPair& pair, DetectionMemory& detections);
