#include "store/work/Worker.h"

#include <algorithm>
#include <system_error>

#include "check/set/SetIdentity.h"
#include "platform/WholeFile.h"
#include "polarline/errors.h"
#include "polarline/exit_code.h"
#include "store/work/Judging.h"
#include "store/work/MetadataFile.h"
#include "store/work/Names.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

std::string failureText(const Check& check) {
  return check.verdict == Verdict::kFail ? verdictText(check) : check.status.text;
}

}  // namespace

Worker::Worker(const BatchOptions& options)
    : options_(options),
      settings_(names::settingsHash(options.check)),
      store_(options.store, options.existing ? StoreFolder::IfMissing::kRefuse : StoreFolder::IfMissing::kMake),
      sign_(store_),
      silence_(options.claim_timeout),
      began_(StoreFolder::now(store_.root())) {
  sweep(store_);
}

std::string Worker::nameOf(const BatchSet& set, const std::string& id) const {
  return id.empty() ? names::byPath(set.folder, settings_) : names::byId(id, settings_);
}

Worker::End Worker::take(const BatchSet& set, const std::string& id) {
  const Task task{set, id, store_.place(nameOf(set, id))};
  last_ = {};
  last_.set = set.folder;
  last_.id = id;
  last_.document = task.place.document().string();
  End end = End::kDone;
  try {
    end = work(task);
  } catch (const OutputError& error) {
    last_.state = BatchState::kNotWritten;
    last_.verdict = Verdict::kError;
    last_.exit_code = kNotWritten;
    last_.retry = true;
    last_.text = error.what();
  }
  if (end == End::kDone) finish();
  return end;
}

void Worker::refuse(const BatchSet& set, const std::string& why) {
  last_ = {};
  last_.set = set.folder;
  last_.state = BatchState::kRefused;
  last_.exit_code = kUnusable;
  last_.text = why;
  finish();
}

void Worker::finish() {
  const bool was_there = last_.state == BatchState::kThere || last_.state == BatchState::kDuplicate;
  ++outcome_.sets;
  outcome_.there += was_there ? 1 : 0;
  outcome_.judged += last_.state == BatchState::kJudged ? 1 : 0;
  outcome_.failed += !was_there && last_.verdict == Verdict::kError ? 1 : 0;
  outcome_.exit_code = std::max(outcome_.exit_code, last_.exit_code);
  if (options_.on_set) options_.on_set(last_, outcome_.sets, all_);
}

/// What is not to be judged again. Of files that can't be read nobody knows whether they are the same as before, nor,
/// of a document as old as the batch, which of both came first: the clock of files ticks some hundred times a second.
std::optional<StoredDocument> Worker::kept(const Task& task) const {
  if (task.id.empty()) return std::nullopt;
  std::error_code failure;
  const fs::file_time_type written = fs::last_write_time(task.place.document(), failure);
  if (failure || (options_.again && !done_.contains(task.place.name) && (!began_ || written <= *began_)))
    return std::nullopt;
  auto document = readStored(task.place.document());
  if (document && document->retry && !done_.contains(task.place.name)) return std::nullopt;
  return document;
}

void Worker::tellThere(const StoredDocument& document, BatchState state) {
  last_.state = state;
  last_.verdict = document.verdict;
  last_.exit_code = document.exit_code;
  last_.retry = document.retry;
  last_.text = document.verdict == Verdict::kError ? document.text : "";
}

Worker::End Worker::work(const Task& task) {
  const BatchState state = done_.contains(task.place.name) ? BatchState::kDuplicate : BatchState::kThere;
  const auto there = kept(task);
  std::error_code ignored;
  const bool is_as_said = hasMetadata(task.place, task.set, settings_);
  if (there && is_as_said && !fs::exists(task.place.claim(), ignored)) {
    forgetUnreadable(task);
    tellThere(*there, state);
    remember(task.place);
    return End::kDone;
  }
  store_.madePlace(task.place.name);
  const auto claim = Claim::take(task.place, silence_, options_.claim_timeout);
  if (!claim) return End::kBusy;
  removeLeftovers(task.place);
  return judge(task, *claim);
}

Worker::End Worker::judge(const Task& task, const Claim& claim) {
  if (const auto there = kept(task)) {  // Another worker may have been here before the claim.
    writeMetadata(task.place, task.set, settings_);
    tellThere(*there, done_.contains(task.place.name) ? BatchState::kDuplicate : BatchState::kThere);
    remember(task.place);
    return End::kDone;
  }
  try {
    whole_file::PartialFile file(task.place.document());
    const Answer answer = judgeInto(file, filesOf(task.set, options_), options_);
    return answer.check.status.exit_code == kInterrupted ? End::kDropped : deliver(task, file, answer);
  } catch (const OutputError&) {
    if (claim.isHeld()) throw;
    return End::kBusy;  // Whoever took this one for dead has cleared its file away.
  }
}

/// The files may have changed, or gone away, since the id was made. A document that has no id tells of the set only if
/// it follows from what stands in its files, and they are those of the id: else it is told by its path, and judged
/// again.
std::string Worker::trueId(const Task& task, const Answer& answer) const {
  const Check& check = answer.check;
  if (!check.id.empty()) return areAllRead(check.inputs) ? check.id : std::string();
  const bool is_told = !answer.files.empty() && !check.status.retry && rests(task, answer.files);
  return is_told ? task.id : std::string();
}

bool Worker::rests(const Task& task, const std::vector<SetInput>& files) const {
  try {
    const Set set = openSet(filesOf(task.set, options_));
    return changedFile(files, set).empty() && idOf(set, options_) == task.id;
  } catch (const InputError&) {
    return false;
  }
}

Worker::End Worker::deliver(const Task& task, whole_file::PartialFile& file, const Answer& answer) {
  const Check& check = answer.check;
  const std::string id = trueId(task, answer);
  const StoredPlace place = store_.madePlace(nameOf(task.set, id));
  writeMetadata(place, task.set, settings_);
  file.commitAt(place.document());
  whole_file::syncFolder(place.folder);
  if (!id.empty()) forgetUnreadable(task);
  remember(place);
  last_.id = id;
  last_.document = place.document().string();
  last_.verdict = check.verdict;
  last_.exit_code = check.status.exit_code;
  last_.retry = check.status.retry;
  last_.seconds = check.seconds;
  last_.text = failureText(check);
  return End::kDone;
}

/// What comes twice is told so of a list; a set in a watched folder may come again with other metadata.
void Worker::remember(const StoredPlace& place) {
  if (all_ > 0) done_.insert(place.name);
}

/// What was written while the set's files could not be read.
void Worker::forgetUnreadable(const Task& task) const {
  const StoredPlace place = store_.place(names::byPath(task.set.folder, settings_));
  std::error_code ignored;
  fs::remove(place.document(), ignored);
  fs::remove(place.metadata(), ignored);
}

}  // namespace polarline
