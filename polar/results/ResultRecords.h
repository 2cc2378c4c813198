#pragma once

#include <vector>

#include "PolarLinePrecision/ResultRecords.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/results/RunResultRecord.h"

/// The evaluator's figures after a finished pair. The canvas is cloned, so that the next pair cannot change it.
void FillResultRecord(const PairEvaluator& evaluator, RunResultRecord& record);

/// The run's records in the caller's form. They are used up: a run exports once, at its end. Returns 0.
int ExportResults(std::vector<RunResultRecord>&& records, std::vector<PolarResultRecord>& results);
