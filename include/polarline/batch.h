#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "polarline/api.h"
#include "polarline/check.h"
#include "polarline/set.h"

/// Many sets, judged by one worker of a fleet. Workers share a folder, the store, and need nothing else of each other:
/// each may be started, ended and started again at any time.
namespace polarline {

/// A set of a list, and what the list says of it.
struct BatchSet {
  std::size_t line = 0;                                       ///< Of the list, from 1.
  std::string folder;                                         ///< As written; relative to the working folder.
  std::vector<std::pair<std::string, std::string>> metadata;  ///< Keys with their values, in the list's order.
  std::string list{};                                         ///< SHA-256 of the list's text; empty for a set of none.
};

/// The sets of a list: a folder a line; behind it, each behind a TAB, `key=value`: what is to be known of the set, such
/// as `serial`, `station`, `model` and `time` (ISO 8601; UTC where no offset is told). Empty lines and those that begin
/// with '#' are left out. Throws `InputError` with the line (what was found, what was wanted).
/// @param name  Of the list, for messages.
POLARLINE_API std::vector<BatchSet> parseBatchList(const std::string& text, const std::string& name);

/// The same of a file; "-" is standard input.
POLARLINE_API std::vector<BatchSet> readBatchList(const std::string& path);

/// A part of a list: of every `of` sets the one at place `number`, counted from 1.
struct Shard {
  std::size_t number = 1;
  std::size_t of = 1;
};

/// "2/5". Throws `InputError`.
POLARLINE_API Shard parseShard(const std::string& text);

/// The part of a task of an array, by the variables SLURM_ARRAY_TASK_ID, _COUNT, _MIN, _MAX and _STEP; without the
/// first of them the whole. Throws `InputError` for an array with gaps, whose tasks can't be counted.
/// @param variable  The value of a variable of the environment; empty where it is not set.
POLARLINE_API Shard shardOfArray(const std::function<std::string(const char*)>& variable);

/// The sets of a part, in their order.
POLARLINE_API std::vector<BatchSet> setsOf(const std::vector<BatchSet>& sets, const Shard& shard);

/// What became of a set.
enum class BatchState : std::uint8_t {
  kJudged,      ///< It was judged now, and its document is in the store.
  kThere,       ///< Its document was in the store.
  kDuplicate,   ///< It is the same, to the byte, as one before it.
  kNotWritten,  ///< Its document could not be put into the store.
  kRefused,     ///< What was said of it in a watched folder can't be used.
};

/// What a worker tells of a set.
struct BatchResult {
  std::string set;  ///< Its folder, as written.
  BatchState state = BatchState::kJudged;
  Verdict verdict = Verdict::kError;
  int exit_code = 0;     ///< What `polarline check` returns for it; 4 when it was not written.
  bool retry = false;    ///< It may succeed when tried again.
  std::string id;        ///< SHA-256 of the set; empty where its files could not be read.
  std::string document;  ///< Path of its document.
  double seconds = 0.0;  ///< That judging it took.
  std::string text;      ///< What went wrong; empty otherwise.
};

/// How a worker judges.
struct BatchOptions {
  std::string store;      ///< Folder of the results; made where it is not there.
  bool existing = false;  ///< The store must be there: it is not made, as what stands in its place may not be its disk.
  CheckOptions check;     ///< Of these `limits`, `settings`, `refine` and `pairs` count.
  Set files;              ///< What is to be taken in place of the sets' own files; `folder` and `list` don't count.
  bool again = false;     ///< Judge also what is there.
  std::size_t stop_after = 0;  ///< End after so many sets without a verdict; 0: never.
  double claim_timeout =
      300.0;  ///< Seconds for which a worker of another machine may be silent until its set is taken.
  /// Called with each set, how many are done and how many there are; 0: unknown.
  std::function<void(const BatchResult&, std::size_t done, std::size_t all)> on_set;
  /// Asked between pairs; false drops the set at hand and ends the batch.
  std::function<bool()> go_on;
  /// Asked between sets; false ends the batch.
  std::function<bool()> go_on_with_next;
};

/// What a batch came to.
struct BatchOutcome {
  std::size_t sets = 0;    ///< Those that something became of.
  std::size_t judged = 0;  ///< Now.
  std::size_t there = 0;   ///< Before, duplicates among them.
  std::size_t failed = 0;  ///< Without a verdict, now.
  int exit_code = 0;       ///< The greatest of the sets'; 130 where the batch was ended before its end.
};

/// Judges sets, one after the other, into a store (docs/batch.md). What is there is left as it is unless it may succeed
/// when tried again; what another worker has in hand is left to it, and waited for at the end. Failures of sets do not
/// throw: they are results. The threads of OpenCV are one while it runs.
/// Throws `InputError` for a limit or a key that can't be used, `OutputError` for a store that can't be made or, with
/// `existing`, is not there.
POLARLINE_API BatchOutcome batch(const std::vector<BatchSet>& sets, const BatchOptions& options);

/// Judges the sets that somebody puts into a folder, until it is ended: each is a folder in it, and is taken when it
/// has a file `ready`, whose lines may tell metadata (`key=value`); the file is best renamed to that when all is there.
/// Throws as above, and `InputError` for a folder that is none.
POLARLINE_API BatchOutcome watchFolder(const std::string& folder, const BatchOptions& options);

/// Makes a store, before workers are told that it is there (`BatchOptions::existing`). One that is there stays as it
/// is. Throws `OutputError` where it can't be made, and for a folder that is none: it may be the place of a disk that
/// is not mounted.
POLARLINE_API void makeStore(const std::string& folder);

/// What became of a set as one line of JSON (schema "polarline-batch/1"), without a line's end.
POLARLINE_API std::string batchLine(const BatchResult& result);

/// What a batch came to in words: "3 sets: 2 judged, 1 already there."
POLARLINE_API std::string batchText(const BatchOutcome& outcome);

/// The same as JSON, schema "polarline-batch-outcome/1".
POLARLINE_API std::string batchJson(const BatchOutcome& outcome);

}  // namespace polarline
