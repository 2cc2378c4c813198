#include "polarline/batch.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "store/work/Course.h"
#include "store/work/IdsAhead.h"
#include "store/work/StoreFolder.h"
#include "store/work/Worker.h"

namespace polarline {
namespace {

/// A set that another worker had in hand.
using Left = std::pair<const BatchSet*, std::string>;

class Walk {
 public:
  Walk(const std::vector<BatchSet>& sets, const BatchOptions& options)
      : sets_(sets), course_(options), ids_(sets, options), worker_(options) {
    worker_.expect(sets.size());
  }

  BatchOutcome run() {
    for (const BatchSet& set : sets_) {
      if (!goesOn()) break;
      const std::string id = ids_.next();
      if (!take(set, id)) left_.emplace_back(&set, id);
    }
    waitForOthers();
    const BatchOutcome outcome = worker_.outcome();
    return course_.ended(outcome, outcome.sets == sets_.size());
  }

 private:
  bool goesOn() { return course_.goesOn(worker_.outcome()); }

  /// False while another worker has it.
  bool take(const BatchSet& set, const std::string& id) {
    const Worker::End end = worker_.take(set, id);
    if (end == Worker::End::kDropped) course_.drop();
    return end != Worker::End::kBusy;
  }

  /// What others finish is there then; what they die over is judged here.
  void waitForOthers() {
    constexpr std::chrono::milliseconds kLongest{2000};
    std::chrono::milliseconds pause{50};
    while (!left_.empty() && goesOn()) {
      std::erase_if(left_, [this](const Left& left) { return goesOn() && take(*left.first, left.second); });
      if (!left_.empty()) course_.wait(worker_.outcome(), pause);
      pause = std::min(pause * 2, kLongest);
    }
  }

  const std::vector<BatchSet>& sets_;
  Course course_;
  IdsAhead ids_;
  Worker worker_;
  std::vector<Left> left_;
};

}  // namespace

BatchOutcome batch(const std::vector<BatchSet>& sets, const BatchOptions& options) {
  demandUsable(options);
  const OneThread one;
  return Walk(sets, options).run();
}

void makeStore(const std::string& folder) { const StoreFolder made(folder, StoreFolder::IfMissing::kMakeWhole); }

std::string batchText(const BatchOutcome& outcome) {
  std::string text = fmt::format("{} set{}: {} judged, {} already there", outcome.sets, outcome.sets == 1 ? "" : "s",
                                 outcome.judged, outcome.there);
  if (outcome.failed > 0) text += fmt::format("; {} without a verdict", outcome.failed);
  return text + ".";
}

}  // namespace polarline
