#include "polarline/check.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "check/explain/WarningOf.h"
#include "check/figures/PairReading.h"
#include "check/figures/Summary.h"
#include "check/judge/GivenUp.h"
#include "check/judge/Judgement.h"
#include "check/judge/SignedLimits.h"
#include "check/refined/PairRefiner.h"
#include "check/run/Correcting.h"
#include "check/run/InputWatch.h"
#include "check/run/Inputs.h"
#include "check/run/OutFolder.h"
#include "check/run/PictureWarnings.h"
#include "check/run/PlainPath.h"
#include "check/run/RunStatus.h"
#include "check/run/SeenPairs.h"
#include "check/set/Fingerprint.h"
#include "check/set/PictureFault.h"
#include "check/set/PictureSource.h"
#include "diagnose/causes/Causes.h"
#include "diagnose/uncertainty/PairUncertainty.h"
#include "platform/Console.h"
#include "platform/Files.h"
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

void dropPoints(PairCheck& pair) {
  pair.points = {};
  if (pair.refined) pair.refined->points = {};
}

/// The cameras that took such pairs are not known, so that nothing can be said of them.
Diagnosis ofRectified(double rows) {
  Diagnosis diagnosis;
  diagnosis.text = fmt::format(
      "The rows differ by {:.3g} px in the mean. No causes are told: the pairs were rectified elsewhere, and the "
      "calibration by which that was done is not known.",
      rows);
  diagnosis.rows_before = diagnosis.rows_after = rows;
  return diagnosis;
}

/// One check from its inputs to its verdict.
class SetCheck final : public RunObserver {
 public:
  SetCheck(Set set, const CheckOptions& options) : set_(std::move(set)), options_(options) {}

  Check run();
  void pairDone(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) override;

 private:
  void readInputs();
  void choosePairs();
  void chooseRefiner();
  std::int32_t runLibrary(PolarPrecision& precision);
  void runWith(OutFolder& out);
  void explainPictures();
  void nameLastPair();
  void explainException(const std::exception& error);
  void lookAtPictures(std::size_t index);
  std::vector<FigureUncertainty> uncertaintyOf(const PairCheck& pair, const PairEvaluator& evaluator) const;
  void addPictures();
  void diagnose();
  void conclude();
  void goOn() const {
    if (options_.go_on && !options_.go_on()) throw Interruption{};
  }

  Set set_;
  const CheckOptions& options_;
  Check check_;
  PolarConfig config_;
  StereoCalibParams calib_;
  RectifiedParams rectified_;
  BoardGroundTruth board_;
  std::vector<Limit> limits_;
  std::size_t first_pair_ = 0;
  std::unique_ptr<ListedPictures> pictures_;
  PictureWarnings picture_warnings_;
  InputWatch watch_;
  PairReading reading_;
  std::unique_ptr<PairRefiner> refiner_;
  SeenPairs seen_;
  MeanRow rows_;
  bool picture_failed_ = false;
};

void SetCheck::readInputs() {
  for (const std::string& text : options_.limits) limits_.push_back(parseLimit(text));
  set_ = openSet(set_);
  if (!set_.limits.empty()) {
    const std::vector<Limit> of_set = readLimits(set_.limits);
    limits_.insert(limits_.end(), of_set.begin(), of_set.end());
  }
  warnOfSigns(limits_, check_.warnings);
  config_ = readPolar(set_.polar, options_.settings, check_.warnings);
  check_.settings = settingsOf(config_);
  check_.board = readBoard(set_.target);
  if (!set_.board.empty()) board_ = readBoardTruth(set_.board);
  check_.board.points = board_.size();
  warnOfBoardTruth(set_.board, config_, check_.board, check_.warnings);
  if (set_.rectified.empty()) {
    calib_ = readCalibration(set_.calibration, check_.warnings);
    check_.cameras = camerasOf(config_.type, calib_);
    requireCorrectable(options_.write_corrected, config_.type);
  } else {
    rectified_ = readRectified(set_.rectified);
    rectified_.boardPoints.assign(board_.begin(), board_.end());
    check_.cameras = camerasOf(rectified_);
  }
  choosePairs();
  chooseRefiner();
  for (const auto& [role, path] : {std::pair{"polar", &set_.polar},
                                   {"target", &set_.target},
                                   {"calibration", &set_.calibration},
                                   {"list", &set_.list},
                                   {"board", &set_.board},
                                   {"limits", &set_.limits},
                                   {"rectified", &set_.rectified}}) {
    if (!path->empty()) check_.inputs.push_back({role, *path, sha256OfFile(*path)});
  }
}

void SetCheck::choosePairs() {
  std::vector<ListedPair> listed = listedPairs(set_.list);
  if (options_.pairs) {
    const auto [first, last] = *options_.pairs;
    if (first > last || last >= listed.size())
      throw InputError("pairs " + std::to_string(first) + "-" + std::to_string(last),
                       "the list has the pairs 0-" + std::to_string(listed.size() - 1));
    listed = {listed.begin() + static_cast<std::ptrdiff_t>(first),
              listed.begin() + static_cast<std::ptrdiff_t>(last) + 1};
    first_pair_ = first;
  }
  pictures_ = std::make_unique<ListedPictures>(std::move(listed), first_pair_);
  picture_warnings_.begin(config_, calib_);
  watch_.begin(config_, check_.board, board_, set_.rectified.empty() ? calib_ : pinholesOf(rectified_),
               !set_.rectified.empty());
}

void SetCheck::chooseRefiner() {
  if (!options_.refine) return requireDetected(limits_);
  RefinerSettings settings = set_.rectified.empty() ? refinerOf(config_, calib_) : refinerOf(rectified_);
  if (config_.frame_work == 0 || !set_.rectified.empty()) settings.board = BoardPlaces(PlainPath(set_.target).get());
  refiner_ = std::make_unique<PairRefiner>(std::move(settings), *pictures_);
}

void SetCheck::lookAtPictures(std::size_t index) {
  const auto pair = static_cast<int>(first_pair_ + index);
  picture_warnings_.look(pair, pictures_->listed(index), pictures_->lastSizes(), pictures_->hasColour());
  picture_warnings_.lookAtEnds(pair, pictures_->listed(index), pictures_->lastCutOff());
}

/// The same for a pair wherever the run begins. Of a pair given up the figures that it came to are not judged.
std::vector<FigureUncertainty> SetCheck::uncertaintyOf(const PairCheck& pair, const PairEvaluator& evaluator) const {
  if (!pair.finished || !hasMeans(evaluator.figures)) return {};
  const auto& [left, right] = pictures_->lastPictures();
  return pairUncertainty(evaluator, pairNoise(left, right, set_.target, pair.index), check_.board.cols, pair.index);
}

void SetCheck::pairDone(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) {
  const ListedPair& listed = pictures_->listed(index);
  if (!finished && status == polar_status::kImages && *evaluator.seen.evaluation == '\0') {
    picture_failed_ = true;
    return;
  }
  lookAtPictures(index);
  PairCheck pair = reading_.read(finished, status, evaluator);
  pair.index = first_pair_ + index;
  pair.left = listed.left;
  pair.right = listed.right;
  if (refiner_) refiner_->addTo(pair);
  mark(limits_, pair);
  if (finished && options_.diagnose) seen_.add(pair.index, evaluator);
  rows_.add(pair);
  pair.uncertainty = uncertaintyOf(pair, evaluator);
  pair.quality = watch_.look(pair, pictures_->lastPictures(), evaluator.seen);
  pictures_->letGo();
  check_.pairs.push_back(std::move(pair));
  if (options_.on_pair) options_.on_pair(check_.pairs.back(), pictures_->pairs());
  if (!options_.keep_points) dropPoints(check_.pairs.back());
  goOn();
}

std::int32_t SetCheck::runLibrary(PolarPrecision& precision) {
  RunArguments arguments;
  const PlainPath target(set_.target);
  arguments.targetConfigPath = target.get();
  arguments.source = pictures_.get();
  arguments.observer = this;
  arguments.refiner = refiner_.get();
  if (!set_.rectified.empty()) return precision.RunRectified(arguments, rectifiedGeometry(rectified_));
  return precision.frameWork() != 0 ? precision.RunFrames(arguments, calib_) : precision.RunImageSet(arguments, calib_);
}

void SetCheck::runWith(OutFolder& out) {
  PolarPrecision precision;
  precision.config = config_;
  precision.config.result_folder = out.resultFolder(config_);
  precision.boardPoints = board_;
  std::int32_t status = runLibrary(precision);
  if (status == polar_status::kSuccess && check_.finished() == 0) status = polar_status::kNoResults;
  check_.status = statusOf(status, status == polar_status::kNoResults ? "" : precision.lastError());
  if (picture_failed_) return explainPictures();  // The run was not whole, nor are its files.
  if (check_.status.exit_code == kNoFigure && !check_.pairs.empty()) nameLastPair();
  if (check_.status.exit_code == kDone || check_.status.exit_code == kNoFigure) out.commit();
}

/// Some configurations let the first pair that can't be evaluated end the run.
void SetCheck::nameLastPair() {
  const PairCheck& last = check_.pairs.back();
  if (check_.status.code != last.reason.code) return;
  check_.status.text = fmt::format("pair {}, which ended the run: {}", last.index, last.reason.text);
}

/// Names the picture that ended the run. It was there when the run began: where it can't be reached any more, nothing
/// is wrong with the set.
void SetCheck::explainPictures() {
  const std::size_t failed = check_.pairs.size();
  const ListedPair& listed = pictures_->listed(failed);
  PictureFault fault = {"could not be read and has come back since", true};
  std::string name = listed.left + " or " + listed.right;
  for (const bool left : {false, true}) {
    const std::string path = pictures_->pathOf(failed, left);
    if (!files::readImage(path).empty()) continue;
    fault = pictureFault(path);
    name = left ? listed.left : listed.right;
  }
  check_.status.text = fmt::format("{}, line {}: the picture {} {}", set_.list, listed.line, name, fault.text);
  if (!fault.may_return) return;
  check_.status.retry = true;
  check_.status.exit_code = kNoFigure;
  check_.status.advice = "It was there when the run began: check that it can be reached, then try again.";
}

/// An exception leaves the run with a pair that nobody has told of yet.
void SetCheck::explainException(const std::exception& error) {
  if (!pictures_ || check_.pairs.size() == pictures_->pairs()) {
    check_.status = statusOf("exception", textOf(error), kNoFigure);
    return;
  }
  const std::size_t failed = check_.pairs.size();
  const std::string pair = fmt::format("pair {}: ", first_pair_ + failed);
  const auto& sizes = pictures_->lastSizes();
  if (sizes[0] == sizes[1]) {
    check_.status = statusOf("exception", pair + textOf(error), kNoFigure);
  } else {
    const std::string found = pair + sizesOf(pictures_->listed(failed), sizes) + "; two of one size were wanted";
    check_.status = statusOf("input", found, kUnusable);
  }
  if (!sizes[0].empty()) lookAtPictures(failed);
}

void SetCheck::addPictures() {
  if (!pictures_ || check_.status.exit_code == kInterrupted) return;  // Nobody waits for hashes then.
  check_.cameras.width = pictures_->size().width;
  check_.cameras.height = pictures_->size().height;
  const std::vector<SetInput> pictures = pictures_->inputs();
  check_.inputs.insert(check_.inputs.end(), pictures.begin(), pictures.end());
  check_.id = fingerprint(check_.inputs);
  check_.warnings.insert(check_.warnings.end(), picture_warnings_.warnings.begin(), picture_warnings_.warnings.end());
  const std::vector<Warning> watched = watch_.warnings(limits_);
  check_.warnings.insert(check_.warnings.end(), watched.begin(), watched.end());
  if (!refiner_) return;
  check_.warnings.insert(check_.warnings.end(), refiner_->warnings().begin(), refiner_->warnings().end());
}

void SetCheck::diagnose() {
  if (!options_.diagnose || check_.status.exit_code != kDone || config_.frame_work != 0) return;
  if (!set_.rectified.empty()) {
    check_.diagnosis = ofRectified(rows_.mean());
    return;
  }
  seen_.begin(config_, calib_, pictures_->size());
  check_.diagnosis = diagnoseCauses(seen_.set());
  if (options_.write_corrected.empty()) return;
  if (check_.diagnosis->corrected) {
    check_.correction = correct(set_, options_, rows_.mean(), check_);
    goOn();
  } else {
    check_.warnings.push_back(
        warningOf("nothing_to_correct", options_.write_corrected + " was not written: " + check_.diagnosis->text));
  }
}

void SetCheck::conclude() {
  check_.summary = summaryOf(check_.pairs);
  if (options_.refine) check_.refined_summary = refinedSummaryOf(check_.pairs);
  check_.limits = judge(limits_, check_);
  const bool all_hold = std::ranges::all_of(check_.limits, &LimitResult::holds);
  if (check_.status.exit_code != kDone) return;
  check_.verdict = all_hold ? Verdict::kPass : Verdict::kFail;
  warnOfGivenUp(check_);
  if (!all_hold) check_.status.exit_code = kLimitExceeded;
}

Check SetCheck::run() {
  const auto start = Clock::now();
  check_.started = fmt::format("{:%Y-%m-%dT%H:%M:%SZ}",
                               fmt::gmtime(std::chrono::system_clock::to_time_t(std::chrono::system_clock::now())));
  check_.folder = set_.folder;
  check_.name = nameOf(set_.folder);
  std::ostream nowhere(nullptr);
  const console::Redirection quiet(nowhere, nowhere);  // The lines of the library are for its own callers.
  try {
    readInputs();
    OutFolder out(options_.out);
    goOn();
    if (options_.on_start) options_.on_start(check_);
    runWith(out);
    diagnose();
  } catch (const Interruption&) {
    check_.status = statusOf("35", "", kInterrupted);
  } catch (const InputError& error) {
    check_.status = statusOf("input", error.what(), kUnusable);
  } catch (const OutputError& error) {
    check_.status = statusOf("output", error.what(), kNotWritten);
  } catch (const std::exception& error) {
    explainException(error);
  }
  addPictures();
  conclude();
  check_.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return std::move(check_);
}

}  // namespace

Check check(const Set& set, const CheckOptions& options) { return SetCheck(set, options).run(); }

}  // namespace polarline
