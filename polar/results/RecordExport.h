#pragma once

#include <vector>

#include "PolarLinePrecision/ResultRecords.h"
#include "polar/results/PairFigures.h"

/// The figures of a finished pair as the run keeps them. The canvas is cloned, so that the next pair cannot change it.
void FillResultRecord(const PairFigures& figures, PairFigures& record);

/// The run's records in the caller's form. They are used up: a run exports once, at its end. Returns 0.
int ExportResults(std::vector<PairFigures>&& records, std::vector<PolarResultRecord>& results);
