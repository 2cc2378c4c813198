#pragma once

#include "polar/PairEvaluator.h"

/// Appends the points of the ids that both maps hold to the two lists, in ascending id.
void appendShared(MeasuredPair& pair);

/// Drops from both maps the ids that the other lacks.
void dropUnshared(MeasuredPair& pair);
