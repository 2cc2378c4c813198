#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "CommandTest.h"
#include "store/MadeStore.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// Results files, by the command.
struct Merge : CommandTest {
  made_store::Store store;
  std::string results = set.parent.file("r.sqlite");

  void fill(unsigned count, const std::string& started) const {
    for (unsigned k = 0; k < count; ++k)
      store.add(made_store::name(k), made_store::check({0.001 * k, 0.05}, started),
                {{"station", std::to_string(k % 3)}});
  }
  CommandRun merge(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"merge", store.path(), "-o", results});
    return run(more);
  }
  /// What a merge that nobody disturbs comes to.
  std::vector<std::string> undisturbed() const {
    const made_store::Results fresh;
    fresh.merge(store);
    return fresh.content();
  }
  std::vector<std::string> content() const {
    const made_store::Results copy;
    fs::copy_file(results, copy.path());
    return copy.content();
  }
};

TEST_F(Merge, SaysWhatItDidAsTextAndAsJson) {
  fill(3, "2026-01-02T03:04:05Z");
  const CommandRun first = merge();
  EXPECT_EQ(first.exit_code, 0) << first.err;
  EXPECT_EQ(first.out, "3 documents: 3 added, 0 replaced, 0 unchanged\nThe results have 3 sets.\n");
  EXPECT_EQ(first.err, "");
  EXPECT_FALSE(fs::exists(results + "-wal")) << "nothing lies beside a file that nobody has open";
  const CommandRun again = merge({"--json", "-"});
  const auto json = DocumentCheck::of("merge").parsed(again.out);
  EXPECT_EQ(json["unchanged"], 3);
  EXPECT_EQ(json["sets"], 3);
  EXPECT_EQ(merge({"--quiet"}).out, "");
}

TEST_F(Merge, TellsADocumentThatIsBrokenAndGoesOn) {
  fill(3, "2026-01-02T03:04:05Z");
  store.write(made_store::name(7), "{\"schema\": \"polarline-check/1\"");
  const CommandRun run = merge();
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_THAT(run.err, HasSubstr(made_store::name(7) + ".json: byte 30"));
  EXPECT_THAT(run.out, HasSubstr("1 file could not be read and is told in the table quarantine."));
}

TEST_F(Merge, EndsWithTheCodesOfEveryCommand) {
  EXPECT_EQ(run({"merge", store.path() + "/none", "-o", results}).exit_code, 2);
  EXPECT_EQ(run({"merge", store.path()}).exit_code, 2);
  EXPECT_EQ(run({"merge", store.path(), "-o", store.path() + "/none/r.sqlite"}).exit_code, 4);
  set.parent.write("r.sqlite", std::string(4000, 'x'));
  EXPECT_EQ(merge().exit_code, 2);
  EXPECT_EQ(set.parent.read("r.sqlite"), std::string(4000, 'x'));
}

TEST_F(Merge, OfAStoreThatCantBeWrittenIsAsAny) {
  fill(3, "2026-01-02T03:04:05Z");
  for (const auto& entry : fs::recursive_directory_iterator(store.path()))
    fs::permissions(entry.path(), fs::perms::owner_write | fs::perms::group_write, fs::perm_options::remove);
  fs::permissions(set.parent.path(), fs::perms::all);
  fs::permissions(store.path(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  for (const auto& entry : fs::directory_iterator(store.path()))
    fs::permissions(entry.path(), fs::perms::others_read | fs::perms::others_exec, fs::perm_options::add);
  options.unprivileged = true;
  const CommandRun run = merge();
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("The results have 3 sets."));
}

TEST_F(Merge, ThatGrowsBeyondTheDiskLeavesTheFileWhole) {
  fill(1500, "2026-01-02T03:04:05Z");
  options.most_bytes = 400'000;
  const CommandRun full = merge();
  EXPECT_EQ(full.exit_code, 4) << full.out;
  isInWords(full);
  options.most_bytes = -1;
  EXPECT_EQ(merge().exit_code, 0);
  EXPECT_EQ(content(), undisturbed());
}

TEST_F(Merge, KilledAgainAndAgainEndsAsOneUndisturbed) {
  fill(1200, "2026-01-02T03:04:05Z");
  options.late_signal = SIGKILL;
  int killed = 0;
  for (int k = 0; k < 12; ++k) {
    options.seconds_to_signal = 0.004 * k * SLOWNESS;
    if (merge().signal == SIGKILL) ++killed;
    // What was judged anew meanwhile counts too.
    if (k == 6) fill(600, "2026-01-03T00:00:00Z");
  }
  EXPECT_GE(killed, 3);
  options.seconds_to_signal = -1.0;
  EXPECT_EQ(merge().exit_code, 0);
  EXPECT_EQ(content(), undisturbed());
}

TEST_F(Merge, BesideAnotherOneThatIsKilledEndsAsOneUndisturbed) {
  fill(1200, "2026-01-02T03:04:05Z");
  std::thread other([this] {
    const CommandRun whole = merge();
    EXPECT_EQ(whole.exit_code, 0) << whole.err;
  });
  CommandRun::Options killing = options;
  killing.late_signal = SIGKILL;
  for (int k = 0; k < 4; ++k) {
    killing.seconds_to_signal = 0.02 * k * SLOWNESS;
    CommandRun({"merge", store.path(), "-o", results}, killing);
  }
  other.join();
  EXPECT_EQ(content(), undisturbed());
}

TEST_F(Merge, InterruptedLeavesTheFileWhole) {
  fill(1200, "2026-01-02T03:04:05Z");
  options.seconds_to_signal = 0.01;
  const CommandRun run = merge();
  EXPECT_THAT(run.exit_code, ::testing::AnyOf(130, 0)) << run.err;  // It may have been faster.
  options.seconds_to_signal = -1.0;
  EXPECT_EQ(merge().exit_code, 0);
  EXPECT_EQ(content(), undisturbed());
}

}  // namespace
