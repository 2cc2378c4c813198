#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "check/run/Answer.h"
#include "platform/WholeFile.h"
#include "polarline/batch.h"
#include "store/work/Claim.h"
#include "store/work/Silence.h"
#include "store/work/StoreFolder.h"
#include "store/work/StoredDocument.h"
#include "store/work/Sweep.h"

namespace polarline {

/// One worker at its store: takes set after set and keeps count.
class Worker {
 public:
  enum class End : std::uint8_t {
    kDone,     ///< `last` tells what became of it.
    kBusy,     ///< Another worker has it in hand.
    kDropped,  ///< Somebody wants this worker to end.
  };

  /// Makes the store, or demands it, and clears up in it. Throws `OutputError`.
  explicit Worker(const BatchOptions& options);

  /// @param id  Of the set; empty where its files can't be read.
  End take(const BatchSet& set, const std::string& id);
  void refuse(const BatchSet& set, const std::string& why);

  const BatchResult& last() const { return last_; }
  const BatchOutcome& outcome() const { return outcome_; }
  /// Of a list: so many sets.
  void expect(std::size_t sets) { all_ = sets; }

 private:
  struct Task {
    const BatchSet& set;
    const std::string& id;
    StoredPlace place;
  };
  End work(const Task& task);
  End judge(const Task& task, const Claim& claim);
  End deliver(const Task& task, whole_file::PartialFile& file, const Answer& answer);
  std::string nameOf(const BatchSet& set, const std::string& id) const;
  std::string trueId(const Task& task, const Answer& answer) const;
  bool rests(const Task& task, const std::vector<SetInput>& files) const;
  std::optional<StoredDocument> kept(const Task& task) const;
  void remember(const StoredPlace& place);
  void forgetUnreadable(const Task& task) const;
  void tellThere(const StoredDocument& document, BatchState state);
  void finish();

  const BatchOptions& options_;
  std::string settings_;
  StoreFolder store_;
  WorkerSign sign_;
  Silence silence_;
  std::optional<std::filesystem::file_time_type> began_;  ///< As the store counts.
  std::set<std::string> done_;                            ///< Names of the documents of a list so far.
  BatchResult last_;
  BatchOutcome outcome_;
  std::size_t all_ = 0;
};

}  // namespace polarline
