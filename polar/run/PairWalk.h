#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>

#include "polar/evaluate/PairEvaluator.h"
#include "polar/run/PolarCore.h"

/// What became of one pair.
enum class PairOutcome : std::uint8_t {
  kFinished,  ///< It gets a progress report, a record and, where the rules say so, a row.
  kGivenUp,   ///< It leaves nothing; the walk goes on.
  kEndRun,    ///< The run ends with the status that came with it.
};

struct PairResult {
  PairOutcome outcome = PairOutcome::kFinished;
  std::int32_t status = 0;  ///< The run's for `kEndRun`; of a pair given up what ended its evaluations.
};

/// How the runs differ in their walk.
struct WalkRules {
  bool counts_given_up = false;   ///< A pair given up counts in the progress and in the next pair's number.
  bool writes_every_row = false;  ///< Rows are formed whatever `evaluation` says.
};

/// Whether the set is one list a side; otherwise the core has its error text and the run ends with -8.
bool isStereoSet(PolarCore& core, const RunArguments& arguments);

/// Tells the callback, if there is one; false: the core has its error text and the run ends with 35.
bool reportProgress(PolarCore& core, const ProgressCallback* progress, float percentage);

/// Evaluates the pair at a position of the set. The walk hands it over as the run's cameras took it, cropped if that is
/// asked for.
using PairEvaluation = std::function<PairResult(std::size_t index, const PairInput& pair)>;

/// Walks the pairs: takes, checks and crops the images, evaluates, reports, records, and at the end closes the summary
/// with a line end. The status of the run.
std::int32_t walkPairs(PolarCore& core, const RunArguments& arguments, PairEvaluator& evaluator, std::ostream& summary,
                       std::chrono::steady_clock::time_point start, const WalkRules& rules,
                       const PairEvaluation& evaluate);
