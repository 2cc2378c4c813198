#include "store/work/Worker.h"

#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "OneSet.h"
#include "check/set/InputFiles.h"
#include "platform/WholeFile.h"
#include "polarline/errors.h"
#include "polarline/exit_code.h"
#include "store/work/ClaimText.h"
#include "store/work/Judging.h"
#include "store/work/Names.h"
#include "support/FullDevice.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// What makes a worker judge a set, and what makes it leave it.
struct WorkerAtItsStore : OneSet {
  std::string idOfSet(const BatchSet& one) const { return idOf(filesOf(one, options), options); }
  BatchResult taken(Worker& worker, const BatchSet& one) const {
    EXPECT_EQ(worker.take(one, idOfSet(one)), Worker::End::kDone);
    return worker.last();
  }
  /// By a worker of its own.
  BatchResult taken(const BatchSet& one) const {
    Worker worker(options);
    return taken(worker, one);
  }
  BatchState stateOf(const BatchSet& one) const { return taken(one).state; }
  StoredPlace place(const BatchSet& one) const {
    return StoreFolder(store).madePlace(names::byId(idOfSet(one), names::settingsHash(options.check)));
  }
  void spoil(const BatchSet& one, const std::string& from, const std::string& to) const {
    const std::string path = place(one).document().string();
    std::string text = TempFolder::contentOf(path);
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos);
    std::ofstream(path, std::ios::binary) << text.replace(at, from.size(), to);
  }
};

TEST_F(WorkerAtItsStore, JudgesWhatIsNotThere) {
  const BatchResult first = taken(listed());
  EXPECT_EQ(first.state, BatchState::kJudged);
  EXPECT_EQ(first.verdict, Verdict::kPass);
  EXPECT_EQ(first.exit_code, kDone);
  EXPECT_EQ(first.document, place(listed()).document());
  EXPECT_EQ(withoutTimes(TempFolder::contentOf(first.document)), withoutTimes(toJson(set.check())));
  const auto before = contentsOf(store);
  EXPECT_EQ(before.size(), 3U);  // The document, its settings and the store's mark.
  const BatchResult second = taken(listed());
  EXPECT_EQ(second.state, BatchState::kThere);
  EXPECT_EQ(second.verdict, Verdict::kPass);
  EXPECT_EQ(contentsOf(store), before);
}

TEST_F(WorkerAtItsStore, LeavesAFailedSetThatCanOnlyFailAgain) {
  options.check.limits = {"dy_means<=0"};
  const BatchResult failed = taken(listed());
  EXPECT_EQ(failed.verdict, Verdict::kFail);
  EXPECT_THAT(failed.text, HasSubstr("FAIL"));
  EXPECT_EQ(taken(listed()).exit_code, kLimitExceeded);
  EXPECT_EQ(stateOf(listed()), BatchState::kThere);
  const BatchSet bad = copy("bad", "no_figure<=1");
  EXPECT_EQ(taken(bad).exit_code, kUnusable);
  const BatchResult again = taken(bad);
  EXPECT_EQ(again.state, BatchState::kThere);
  EXPECT_EQ(again.exit_code, kUnusable);
  EXPECT_THAT(again.text, HasSubstr("no_figure"));
}

TEST_F(WorkerAtItsStore, TriesAgainWhatMaySucceed) {
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
  spoil(listed(), "\"retry\": false", "\"retry\": true");
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
  EXPECT_EQ(stateOf(listed()), BatchState::kThere);
}

TEST_F(WorkerAtItsStore, JudgesAgainWhatIsNotWhole) {
  taken(listed());
  fs::resize_file(place(listed()).document(), 1000);
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
  fs::resize_file(place(listed()).document(), 0);
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
}

TEST_F(WorkerAtItsStore, JudgesAllAgainOnRequestAndOnceOnly) {
  taken(listed());
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  options.again = true;
  Worker worker(options);
  EXPECT_EQ(taken(worker, listed()).state, BatchState::kJudged);
  EXPECT_EQ(taken(worker, listed()).state, BatchState::kThere);
}

TEST_F(WorkerAtItsStore, TellsOtherSettingsAndContentsApart) {
  taken(listed());
  options.check.limits = {"dy_means<=5"};
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
  set.append("polar.txt", "\n");
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
  EXPECT_EQ(documents().size(), 3U);
}

TEST_F(WorkerAtItsStore, KnowsTheSameSetElsewhere) {
  Worker worker(options);
  worker.expect(2);
  EXPECT_EQ(taken(worker, listed()).state, BatchState::kJudged);
  EXPECT_EQ(taken(worker, copy("same")).state, BatchState::kDuplicate);
  EXPECT_EQ(stateOf(copy("another")), BatchState::kThere);
  EXPECT_EQ(worker.outcome().there, 1U);
  EXPECT_EQ(worker.outcome().judged, 1U);
}

TEST_F(WorkerAtItsStore, RenewsMetadataWithoutJudging) {
  taken(listed({{"serial", "A1"}}));
  const fs::path metadata = place(listed()).metadata();
  EXPECT_THAT(TempFolder::contentOf(metadata), HasSubstr("A1"));
  EXPECT_EQ(stateOf(listed({{"serial", "A2"}})), BatchState::kThere);
  EXPECT_THAT(TempFolder::contentOf(metadata), HasSubstr("A2"));
  EXPECT_EQ(stateOf(listed()), BatchState::kThere);
  EXPECT_THAT(TempFolder::contentOf(metadata), HasSubstr("A2"));
}

TEST_F(WorkerAtItsStore, LeavesWhatAnotherHasInHand) {
  const StoredPlace held = place(listed());
  std::ofstream(held.claim()) << claimText({"elsewhere", "another", 1, "1"});
  Worker worker(options);
  EXPECT_EQ(worker.take(listed(), idOfSet(listed())), Worker::End::kBusy);
  EXPECT_EQ(worker.outcome().sets, 0U);
  fs::last_write_time(held.claim(), fs::last_write_time(held.claim()) - std::chrono::hours(1));
  EXPECT_EQ(taken(worker, listed()).state, BatchState::kJudged);
  EXPECT_FALSE(fs::exists(held.claim()));
}

TEST_F(WorkerAtItsStore, ClearsUpBehindTheDead) {
  taken(listed());
  const StoredPlace there = place(listed());
  std::ofstream(there.claim()) << claimText({"elsewhere", "another", 1, "1"});
  std::ofstream(there.document().string() + ".partial-1-2-3") << "half";
  fs::last_write_time(there.claim(), fs::last_write_time(there.claim()) - std::chrono::hours(1));
  EXPECT_EQ(stateOf(listed()), BatchState::kThere);
  EXPECT_EQ(contentsOf(store).size(), 3U);
}

TEST_F(WorkerAtItsStore, SweepsItWhenItBegins) {
  taken(listed());
  const auto before = contentsOf(store);
  const pid_t process = fork();
  if (process == 0) {
    const Worker killed(options);
    const whole_file::PartialFile half(place(listed()).document());
    _exit(0);
  }
  waitpid(process, nullptr, 0);
  EXPECT_EQ(contentsOf(store).size(), before.size() + 2);
  { const Worker worker(options); }
  EXPECT_EQ(contentsOf(store), before);
}

TEST_F(WorkerAtItsStore, SweepsTheCopiesThatTheDeadMade) {
  const auto copies = [] {
    std::size_t count = 0;
    for (const auto& each : fs::directory_iterator(fs::temp_directory_path()))
      count += whole_file::isPartial(each.path()) && whole_file::isAbandoned(each.path()) ? 1U : 0U;
    return count;
  };
  { const Worker worker(options); }
  const std::size_t before = copies();
  const pid_t process = fork();
  if (process == 0) {
    const InputFiles killed(openSet(set.set()));
    _exit(0);
  }
  waitpid(process, nullptr, 0);
  EXPECT_GT(copies(), before);
  { const Worker worker(options); }
  EXPECT_EQ(copies(), before);
}

TEST_F(WorkerAtItsStore, NeverMakesOneThatHasToBeThere) {
  options.existing = true;
  EXPECT_THROW(Worker{options}, OutputError);
  fs::create_directory(store);
  EXPECT_THROW(Worker{options}, OutputError);
  EXPECT_TRUE(fs::is_empty(store));
  fs::remove(store);
  makeStore(store);
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
}

TEST_F(WorkerAtItsStore, WritesTheSettingsOfADocumentThatHasNone) {
  taken(listed());
  fs::remove(place(listed()).metadata());  // As of a version that wrote them only beside metadata.
  EXPECT_EQ(stateOf(listed()), BatchState::kThere);
  EXPECT_THAT(TempFolder::contentOf(place(listed()).metadata()), HasSubstr(names::settingsHash(options.check)));
}

TEST_F(WorkerAtItsStore, TriesASetThatCannotBeReadEachTimeAndForgetsThatInTheEnd) {
  const fs::path away = set.parent.file("away.png");
  fs::rename(set.file("left_0.png"), away);
  const BatchResult unread = taken(listed({{"serial", "A1"}}));
  EXPECT_EQ(unread.state, BatchState::kJudged);
  EXPECT_EQ(unread.exit_code, kUnusable);
  EXPECT_EQ(unread.id, "");
  EXPECT_EQ(unread.document, StoreFolder(store).place(names::byPath(set.folder, names::settingsHash({}))).document());
  EXPECT_EQ(stateOf(listed()), BatchState::kJudged);
  fs::rename(away, set.file("left_0.png"));
  EXPECT_EQ(taken(listed({{"serial", "A1"}})).verdict, Verdict::kPass);
  EXPECT_EQ(contentsOf(store).size(), 3U);  // Mark, document, metadata.
}

TEST_F(WorkerAtItsStore, NamesADocumentByWhatWasChecked) {
  const std::string before = idOfSet(listed());
  set.append("polar.txt", "\n");  // Between the id and the check.
  Worker worker(options);
  EXPECT_EQ(worker.take(listed(), before), Worker::End::kDone);
  EXPECT_EQ(worker.last().id, idOfSet(listed()));
  EXPECT_EQ(stateOf(listed()), BatchState::kThere);
}

TEST_F(WorkerAtItsStore, NeverCallsASetUnusableForGoodWhoseFilesWentAway) {
  const std::string before = idOfSet(listed());
  fs::rename(set.file("polar.txt"), set.parent.file("away.txt"));
  Worker worker(options);
  EXPECT_EQ(worker.take(listed(), before), Worker::End::kDone);
  EXPECT_EQ(worker.last().verdict, Verdict::kError);
  fs::rename(set.parent.file("away.txt"), set.file("polar.txt"));
  EXPECT_EQ(taken(listed()).verdict, Verdict::kPass);
  EXPECT_EQ(documents().size(), 1U);
}

/// Whatever the moment: a document under the set's own name is that of the set.
TEST_F(WorkerAtItsStore, NeverKeepsAVerdictOfFilesThatWereAwayForAnInstant) {
  const std::string id = idOfSet(listed());
  const StoredPlace own = place(listed());
  Worker worker(options);
  const std::string away = set.parent.file("away");
  for (const std::string& path : {set.file("target.ini"), set.file("board_gt.txt"), set.folder.string()}) {
    for (int k = 0; k < 12; ++k) {
      std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::microseconds(500 * k));
        fs::rename(path, away);
        std::this_thread::sleep_for(std::chrono::microseconds(100));
        fs::rename(away, path);
      });
      worker.take(listed(), id);
      other.join();
      const BatchResult result = worker.last();
      EXPECT_TRUE(result.id == id || result.id.empty()) << path << ", " << k << ": " << result.text;
      EXPECT_EQ(result.id == id && !result.retry, result.verdict == Verdict::kPass) << path << ", " << k << result.text;
      fs::remove(own.document());
    }
  }
  EXPECT_EQ(taken(worker, listed()).verdict, Verdict::kPass);
  EXPECT_EQ(documents().size(), 1U);
}

TEST_F(WorkerAtItsStore, TellsThatASetWhoseDiskIsAwayMayBeTriedAgain) {
  const std::string away = set.parent.file("away");
  fs::rename(set.folder, away);
  const BatchResult unread = taken(listed());
  EXPECT_EQ(unread.exit_code, kUnusable);
  EXPECT_TRUE(unread.retry);
  EXPECT_THAT(TempFolder::contentOf(unread.document), HasSubstr("\"retry\": true"));
  fs::rename(away, set.folder);
  EXPECT_EQ(taken(listed()).verdict, Verdict::kPass);
  EXPECT_EQ(documents().size(), 1U);
}

TEST_F(WorkerAtItsStore, TellsAFullDiskAndWritesNothingWrong) {
  Worker worker(options);
  const auto before = contentsOf(store);
  {
    const FullDevice full;
    const BatchResult result = taken(worker, listed({{"serial", "A1"}}));
    EXPECT_EQ(result.state, BatchState::kNotWritten);
    EXPECT_EQ(result.exit_code, kNotWritten);
    EXPECT_TRUE(result.retry);
    EXPECT_NE(result.text, "");
  }
  EXPECT_EQ(contentsOf(store), before);
  EXPECT_EQ(taken(worker, listed()).state, BatchState::kJudged);
  EXPECT_EQ(worker.outcome().failed, 1U);
  EXPECT_EQ(worker.outcome().exit_code, kNotWritten);
}

TEST_F(WorkerAtItsStore, TellsAStoreThatIsAwayAndGoesOnWhenItIsBack) {
  Worker worker(options);
  fs::rename(store, store + "_away");
  const BatchResult result = taken(worker, listed());
  EXPECT_EQ(result.state, BatchState::kNotWritten);
  EXPECT_THAT(result.text, HasSubstr("the store is away"));
  EXPECT_FALSE(fs::exists(store));
  fs::rename(store + "_away", store);
  EXPECT_EQ(taken(worker, listed()).state, BatchState::kJudged);
}

TEST_F(WorkerAtItsStore, DropsASetCleanly) {
  options.go_on = [] { return false; };
  Worker worker(options);
  const auto before = contentsOf(store);
  EXPECT_EQ(worker.take(listed(), idOfSet(listed())), Worker::End::kDropped);
  EXPECT_EQ(contentsOf(store), before);
}

TEST_F(WorkerAtItsStore, LeavesASetToWhoTookItOver) {
  Worker worker(options);
  const StoredPlace held = place(listed());
  options.go_on = [&] {
    // Another worker took this one for dead: it took the claim over, and cleared away what was half written.
    fs::remove(held.claim());
    std::ofstream(held.claim()) << claimText({"elsewhere", "another", 1, "1"});
    removeLeftovers(held);
    return true;
  };
  EXPECT_EQ(worker.take(listed(), idOfSet(listed())), Worker::End::kBusy);
  EXPECT_TRUE(fs::exists(held.claim()));
}

}  // namespace
}  // namespace polarline
