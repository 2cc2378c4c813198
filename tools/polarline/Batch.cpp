#include "polarline/batch.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "polarline/errors.h"
#include "tools/polarline/Interruption.h"
#include "tools/polarline/JudgingOptions.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/PairProgress.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct BatchRequest {
  std::string list, watch, shard;
  JudgingOptions judging;
  polarline::BatchOptions options;
  double grace = 25.0;  ///< Slurm gives 30.
  std::int64_t stop_after = 0;
  bool make_store = false;
  ResultOptions result;
};

constexpr const char* kStoppedWords = "polarline: ended by --stop-after; sets are left over\n";

std::string environmentOf(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

polarline::Shard partOf(const BatchRequest& request) {
  return request.shard.empty() ? polarline::shardOfArray(environmentOf) : polarline::parseShard(request.shard);
}

/// What is taken as a number and is none of use.
void requireSensible(const BatchRequest& request) {
  if (!std::isfinite(request.grace) || request.grace < 0.0)
    throw polarline::InputError("--grace", "seconds from 0 on were wanted");
  if (request.stop_after < 0)
    throw polarline::InputError("--stop-after", "a number of sets was wanted, or 0 for never");
}

polarline::BatchOutcome judgedAll(const BatchRequest& request) {
  if (int{request.list.empty()} + int{request.watch.empty()} + int{!request.make_store} != 2)
    throw polarline::InputError("LIST", "a list of sets, --watch FOLDER or --make-store was wanted, one of the three");
  if (request.make_store) {
    polarline::makeStore(request.options.store);
    return {};
  }
  std::vector<polarline::BatchSet> sets;
  if (request.watch.empty()) sets = polarline::setsOf(polarline::readBatchList(request.list), partOf(request));
  finishAtTermination(request.grace);
  return request.watch.empty() ? polarline::batch(sets, request.options)
                               : polarline::watchFolder(request.watch, request.options);
}

/// Tells each set. That nobody reads it any more must not cost a result.
class SetSpeaker {
 public:
  explicit SetSpeaker(const ResultOptions& result)
      : is_quiet_(result.quiet), has_output_(result.json != "-"), progress_(result.quiet, "set") {}

  void set(const polarline::BatchResult& result, std::size_t done, std::size_t all) {
    progress_.clear();
    try {
      if (has_output_ && (!is_quiet_ || result.exit_code >= kUnusable))
        deliver("-", polarline::batchLine(result) + "\n");
    } catch (const polarline::OutputError& error) {
      if (!is_mute_) tell("polarline: {}\n", terminal::onOneLine(error.what()));
      is_mute_ = true;
    }
    if (done < all) progress_.show(done, all);
  }
  void end(const polarline::BatchOutcome& outcome) {
    progress_.clear();
    if (!is_quiet_ && terminal::isTerminal(terminal::errors())) tell("{}\n", polarline::batchText(outcome));
  }
  bool isMute() const { return is_mute_; }

 private:
  bool is_quiet_;
  bool has_output_;  ///< Standard output is no document's.
  bool is_mute_ = false;
  PairProgress progress_;
};

int runBatch(BatchRequest& request) {
  requireSeparate({{"--json", request.result.json}}, {request.list == "-" ? "" : request.list});
  requireSensible(request);
  request.judging.takePairs();
  request.options.stop_after = static_cast<std::size_t>(request.stop_after);
  request.options.check = request.judging.check;
  SetSpeaker speaker(request.result);
  request.options.on_set = [&](const auto& result, std::size_t done, std::size_t all) {
    speaker.set(result, done, all);
  };
  endAtOwnLook();
  request.options.go_on = [] { return !interrupted(); };
  request.options.go_on_with_next = [] { return !ending(); };
  const polarline::BatchOutcome outcome = judgedAll(request);
  speaker.end(outcome);
  if (!request.result.json.empty()) deliver(request.result.json, polarline::batchJson(outcome));
  if (outcome.exit_code == kInterrupted) tell("{}", ending() || interrupted() ? kInterruptedWords : kStoppedWords);
  return speaker.isMute() && outcome.exit_code < kNotWritten ? kNotWritten : outcome.exit_code;
}

}  // namespace

Subcommand addBatch(CLI::App& polarline) {
  CLI::App* const app =
      polarline.add_subcommand("batch", "Judges many sets into a folder that several workers may share");
  const auto request = std::make_shared<BatchRequest>();
  app->add_option("LIST", request->list,
                  "A set a line, behind it TAB and serial=..., station=..., model=..., time=...; - is standard input")
      ->type_name("");
  app->add_option("--store", request->options.store, "Folder of the results, the same for all workers")
      ->required()
      ->type_name("FOLDER");
  app->add_flag("--make-store", request->make_store,
                "In place of LIST: make the store where nothing stands yet, and end");
  app->add_flag("--existing", request->options.existing,
                "End where the store is not there, in place of making it: its disk may not be mounted");
  app->add_option("--watch", request->watch, "In place of LIST: each folder in it that has a file 'ready', until ended")
      ->type_name("FOLDER");
  app->add_option("--shard", request->shard, "Part K of N of the list; by default that of Slurm's array")
      ->type_name("K/N");
  app->add_flag("--again", request->options.again, "Judge also what is there");
  app->add_option("--stop-after", request->stop_after, "End after so many sets without a verdict; 0: never")
      ->type_name("N");
  app->add_option("--grace", request->grace, "Seconds that SIGTERM leaves the set at hand")
      ->type_name("SECONDS")
      ->capture_default_str();
  app->add_option("--claim-timeout", request->options.claim_timeout,
                  "Seconds for which a worker of another machine may be silent until its set is taken")
      ->type_name("SECONDS")
      ->capture_default_str();
  addJudgingOptions(*app, request->judging);
  addFileOptions(*app, request->options.files);
  addResultOptions(*app, request->result);
  addExample(*app, "polarline batch sets.txt --store results --limit 'dy_means<=0.1'");
  return {app, [request] { return runBatch(*request); }};
}

}  // namespace command
