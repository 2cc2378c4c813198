#include "polarline/check.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "check/explain/WarningOf.h"
#include "check/figures/Summary.h"
#include "check/judge/DetectCommand.h"
#include "check/judge/GivenUp.h"
#include "check/judge/Judgement.h"
#include "check/run/Answer.h"
#include "check/run/Diagnosing.h"
#include "check/run/FailureWords.h"
#include "check/run/NoFigures.h"
#include "check/run/OutFolder.h"
#include "check/run/PairLook.h"
#include "check/run/PicturesBehind.h"
#include "check/run/PlainPath.h"
#include "check/run/RunInputs.h"
#include "check/run/RunStatus.h"
#include "check/set/ChosenPairs.h"
#include "check/set/Fingerprint.h"
#include "check/set/GivenPictures.h"
#include "check/set/ListedPairs.h"
#include "check/set/PictureSource.h"
#include "check/set/SetIdentity.h"
#include "check/set/UnreadInput.h"
#include "platform/Console.h"
#include "polar/run/PolarPrecision.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

using Clock = std::chrono::steady_clock;

/// Leaves the library from within an observer.
struct Interruption {};

/// The last folder of a path; "." and ".." are called by what they are.
std::string nameOf(const std::string& path) {
  if (path.empty()) return {};
  const std::filesystem::path folder = std::filesystem::absolute(path).lexically_normal();
  return (folder.has_filename() ? folder : folder.parent_path()).filename().string();
}

/// A list of one camera against itself has figures, too.
void warnOfSamePictures(const std::vector<ListedPair>& listed, const std::string& list,
                        std::vector<Warning>& warnings) {
  const auto same = std::ranges::find_if(listed, [](const ListedPair& pair) { return pair.left == pair.right; });
  if (same == listed.end()) return;
  warnings.push_back(
      warningOf("same_picture", fmt::format("{}, line {}: {} stands on both sides", list, same->line, same->left)));
}

void dropPoints(PairCheck& pair) {
  pair.points = {};
  if (pair.refined) pair.refined->points = {};
}

/// One check from its inputs to its verdict.
class SetCheck final : public RunObserver {
 public:
  SetCheck(const Set& set, const CheckOptions& options) : set_(set), options_(options) {}

  Answer run();
  void pairDone(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) override;

 private:
  void readAll();
  void requireUnchanged() const;
  void requireNothingFurther() const;
  void choosePairs();
  std::int32_t runLibrary(PolarPrecision& precision);
  std::int32_t runInto(OutFolder& out, PolarPrecision& precision);
  void runWith(OutFolder& out);
  void runAll();
  void endWithout(const ChangedInput& error);
  void endWith(const std::exception& error);
  bool hasRowsToExplain() const;
  void addPictures();
  void conclude();
  void goOn() const {
    if (options_.go_on && !options_.go_on()) throw Interruption{};
  }

  const Set& set_;
  const CheckOptions& options_;
  Check check_;
  RunInputs inputs_;
  std::size_t first_pair_ = 0;
  std::unique_ptr<ListedPictures> pictures_;
  std::unique_ptr<PairLook> pairs_;
  bool picture_failed_ = false;
  bool rests_on_files_ = false;
};

void SetCheck::requireUnchanged() const {
  std::string changed = set_.folder;
  try {
    // What can be left out, and what a set may have in one form or another, might have been away when it was looked
    // for.
    changed = changedFile(inputs_.files.hashes(), opened(set_, options_));
  } catch (const InputError&) {
  }
  if (!changed.empty()) throw ChangedInput(changed + ": changed or went away while it was read");
}

/// A file that was away for as long as the set was read was taken for one that it does not have, or has in another
/// form.
void SetCheck::requireNothingFurther() const {
  std::vector<SetInput> now;
  try {
    now = namedFiles(opened(set_, options_));
  } catch (const InputError&) {
    return;  // What went away since was read before.
  }
  for (const SetInput& file : now) {
    if (std::ranges::count(inputs_.files.hashes(), file.path, &SetInput::path) == 0)
      throw ChangedInput(file.path + ": was not there when the set was read");
  }
}

/// What was read must be what was hashed, and all of one moment.
void SetCheck::readAll() {
  try {
    readInputs(set_, options_, inputs_, check_);
    choosePairs();
  } catch (const OutputError&) {
    throw;
  } catch (const std::exception& error) {
    if (!inputs_.files.hashes().empty()) requireUnchanged();
    rests_on_files_ = dynamic_cast<const UnreadInput*>(&error) == nullptr;
    throw;
  }
  requireUnchanged();
  rests_on_files_ = true;
}

void SetCheck::choosePairs() {
  std::vector<ListedPair> listed =
      options_.pictures ? listedPairs(*options_.pictures) : listedPairs(inputs_.files.of(inputs_.set.list));
  listed = chosenPairs(std::move(listed), options_.pairs);
  if (!options_.pictures) warnOfSamePictures(listed, inputs_.set.list, check_.warnings);
  if (options_.pairs) first_pair_ = options_.pairs->first;
  pictures_ = std::make_unique<ListedPictures>(std::move(listed), first_pair_,
                                               options_.pictures ? &*options_.pictures : nullptr);
  check_.listed = pictures_->pairs();
  pairs_ = std::make_unique<PairLook>(inputs_, options_, check_.board, *pictures_, first_pair_);
}

void SetCheck::pairDone(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) {
  if (!finished && status == polar_status::kImages && *evaluator.seen.evaluation == '\0') {
    picture_failed_ = true;
    return;
  }
  check_.pairs.push_back(pairs_->look(index, finished, status, evaluator));
  if (options_.on_pair) options_.on_pair(check_.pairs.back(), pictures_->pairs());
  if (!options_.keep_points) dropPoints(check_.pairs.back());
  goOn();
}

std::int32_t SetCheck::runLibrary(PolarPrecision& precision) {
  RunArguments arguments;
  const PlainPath target(inputs_.target());
  arguments.targetConfigPath = target.get();
  arguments.source = pictures_.get();
  arguments.observer = this;
  arguments.refiner = pairs_->refiner();
  if (inputs_.areRectified()) return precision.RunRectified(arguments, rectifiedGeometry(inputs_.rectified));
  return precision.frameWork() != 0 ? precision.RunFrames(arguments, inputs_.calib)
                                    : precision.RunImageSet(arguments, inputs_.calib);
}

/// An exception that ends the run behind finished pairs leaves the files that it leaves behind an export.
std::int32_t SetCheck::runInto(OutFolder& out, PolarPrecision& precision) {
  std::optional<PicturesBehind> behind;
  if (!options_.out.empty()) behind.emplace();
  try {
    const std::int32_t status = runLibrary(precision);
    if (behind) behind->finish();
    return status;
  } catch (const OutputError&) {  // Of who hears of the pairs.
    throw;
  } catch (const std::exception&) {
    if (behind) behind->finish();
    if (check_.finished() != 0) out.commit();
    throw;
  }
}

void SetCheck::runWith(OutFolder& out) {
  PolarPrecision precision;
  precision.config = inputs_.config;
  precision.config.result_folder = out.resultFolder(inputs_.config);
  precision.boardPoints = inputs_.board;
  std::int32_t status = runInto(out, precision);
  if (inputs_.files.areCopied()) {
    requireNothingFurther();
  } else {
    requireUnchanged();
  }
  if (status == polar_status::kSuccess && check_.finished() == 0) status = polar_status::kNoResults;
  check_.status = statusOf(status, status == polar_status::kNoResults ? "" : precision.lastError());
  if (picture_failed_) {  // The run was not whole, nor are its files.
    explainPictures(*pictures_, inputs_.set.list, check_);
    return;
  }
  // Also of a run that a pair ended, its files are what an export leaves.
  const bool has_run = check_.status.exit_code == kDone || check_.status.exit_code == kNoFigure;
  if (check_.status.exit_code == kDone) check_.status = nothingMeasured(check_, inputs_).value_or(check_.status);
  if (check_.status.exit_code == kNoFigure && !check_.pairs.empty())
    check_.status = wantedBeyondBoard(check_, inputs_).value_or(check_.status);
  if (check_.status.exit_code == kNoFigure && !check_.pairs.empty()) nameLastPair(check_, pictures_->pairs());
  if (has_run) out.commit();
}

void SetCheck::endWith(const std::exception& error) {
  const std::size_t done = check_.pairs.size();
  check_.status = statusOf(error, inputs_, pictures_.get(), first_pair_, check_);
  const bool was_taken = pictures_ && done < pictures_->pairs() && !pictures_->lastSizes()[0].empty();
  if (pairs_ && was_taken) pairs_->lookAtPictures(done);
}

/// Nobody knows what the figures so far are of.
void SetCheck::endWithout(const ChangedInput& error) {
  check_.status = statusOf("input", error.what(), kNoFigure);
  check_.status.retry = true;
  check_.inputs.clear();
  pictures_.reset();
  rests_on_files_ = false;
}

void SetCheck::addPictures() {
  if (!pictures_ || check_.status.exit_code == kInterrupted) return;  // Nobody waits for hashes then.
  check_.cameras.width = pictures_->size().width;
  check_.cameras.height = pictures_->size().height;
  const std::vector<SetInput> pictures = pictures_->inputs();
  check_.inputs.insert(check_.inputs.end(), pictures.begin(), pictures.end());
  check_.id = fingerprint(check_.inputs);
  if (!pairs_) return;
  const std::vector<Warning> warnings = pairs_->warnings();
  check_.warnings.insert(check_.warnings.end(), warnings.begin(), warnings.end());
}

void SetCheck::conclude() {
  nameDetectCommand(check_, first_pair_ + check_.pairs.size());
  check_.summary = summaryOf(check_.pairs);
  if (options_.refine) check_.refined_summary = refinedSummaryOf(check_.pairs);
  const bool is_whole = pictures_ && check_.pairs.size() >= pictures_->pairs();
  check_.limits = judge(inputs_.limits, check_, is_whole);
  const bool all_hold = std::ranges::all_of(check_.limits, &LimitResult::holds);
  if (check_.status.exit_code != kDone) return;
  check_.verdict = all_hold ? Verdict::kPass : Verdict::kFail;
  warnOfGivenUp(check_);
  if (!all_hold) check_.status.exit_code = kLimitExceeded;
}

/// What the pairs before it have shown is worth a reason also where one of them ended the run.
bool SetCheck::hasRowsToExplain() const {
  return options_.diagnose && (check_.status.exit_code == kDone || std::isfinite(pairs_->rows().mean()));
}

void SetCheck::runAll() {
  readAll();
  OutFolder out(options_.out);
  goOn();
  if (options_.on_start) options_.on_start(check_);
  runWith(out);
  if (hasRowsToExplain()) {
    diagnose(inputs_, options_, *pairs_, check_);
    if (!options_.write_corrected.empty()) requireUnchanged();  // A second run may have opened the files once more.
    goOn();
  }
}

Answer SetCheck::run() {
  const auto start = Clock::now();
  check_.started = fmt::format("{:%Y-%m-%dT%H:%M:%SZ}",
                               fmt::gmtime(std::chrono::system_clock::to_time_t(std::chrono::system_clock::now())));
  check_.folder = set_.folder;
  check_.name = nameOf(set_.folder);
  std::ostream nowhere(nullptr);
  const console::Redirection quiet(nowhere, nowhere);  // The lines of the library are for its own callers.
  try {
    runAll();
  } catch (const Interruption&) {
    check_.status = statusOf("35", "", kInterrupted);
  } catch (const UnreadInput& error) {
    check_.status = statusOf("input", error.what(), kUnusable);
    check_.status.retry = error.mayReturn();
  } catch (const ChangedInput& error) {
    endWithout(error);
  } catch (const InputError& error) {
    check_.status = statusOf("input", error.what(), kUnusable);
  } catch (const OutputError& error) {
    check_.status = statusOf("output", error.what(), kNotWritten);
  } catch (const std::exception& error) {
    endWith(error);
  }
  addPictures();
  conclude();
  check_.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return {std::move(check_), rests_on_files_ ? inputs_.files.hashes() : std::vector<SetInput>()};
}

}  // namespace

Answer answerOf(const Set& set, const CheckOptions& options) { return SetCheck(set, options).run(); }

Check check(const Set& set, const CheckOptions& options) { return answerOf(set, options).check; }

}  // namespace polarline
