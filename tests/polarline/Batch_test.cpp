#include <fstream>
#include <sstream>

#include "CommandTest.h"
#include "store/MadeStore.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// A worker as users start it.
struct BatchCommand : CommandTest {
  std::string store = set.parent.file("store");

  /// A list of copies of the set, each with an id of its own.
  std::string list(std::size_t count) const {
    std::string lines;
    for (std::size_t k = 0; k < count; ++k) {
      const std::string folder = set.parent.file("set_" + std::to_string(k));
      fs::copy(set.folder, folder);
      std::ofstream(folder + "/limits.txt") << "dy_means<=" << 10 + k << "\n";
      lines += folder + "\tserial=A" + std::to_string(k) + "\n";
    }
    return set.parent.write("list.txt", lines);
  }
  CommandRun batch(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "batch");
    arguments.insert(arguments.end(), {"--store", store});
    return run(arguments);
  }
  static std::vector<nlohmann::json> linesOf(const CommandRun& run) {
    std::vector<nlohmann::json> lines;
    std::istringstream stream(run.out);
    for (std::string line; std::getline(stream, line);) lines.push_back(DocumentCheck::of("batch").parsed(line));
    return lines;
  }
  nlohmann::json plain(const std::string& path) const {
    nlohmann::json document = DocumentCheck::ofCheck().parsed(TempFolder::contentOf(path));
    document.erase("started");
    document.erase("seconds");
    return document;
  }
  /// No claim, nothing half.
  void nothingOpen() const {
    nothingHalf();
    for (const auto& entry : fs::recursive_directory_iterator(store)) EXPECT_NE(entry.path().extension(), ".claim");
  }
};

TEST_F(BatchCommand, WritesWhatCheckWritesForEachSet) {
  const std::string path = list(2);
  const std::vector<std::string> how = {"--refine", "--limit", "dy_max<=1e-9", "--set", "f_scale=1", "--pairs", "0"};
  std::vector<std::string> arguments = {path};
  arguments.insert(arguments.end(), how.begin(), how.end());
  const CommandRun run = batch(arguments);
  EXPECT_EQ(run.exit_code, 1) << run.err;
  EXPECT_EQ(run.err, "");
  const auto lines = linesOf(run);
  ASSERT_EQ(lines.size(), 2U);
  for (const nlohmann::json& line : lines) {
    EXPECT_EQ(line["state"], "judged");
    std::vector<std::string> one = {"check", line["set"], "--json", set.parent.file("r.json"), "--quiet"};
    one.insert(one.end(), how.begin(), how.end());
    EXPECT_EQ(this->run(one).exit_code, line["exit_code"]);
    EXPECT_EQ(plain(line["document"]), plain(set.parent.file("r.json")));
  }
  nothingOpen();
}

TEST_F(BatchCommand, SaysThatItEndedByItselfAfterSoManyFailures) {
  const std::string missing = set.parent.file("missing");
  const CommandRun run =
      batch({set.parent.write("list.txt", missing + "\n" + set.folder.string() + "\n"), "--stop-after", "1"});
  EXPECT_EQ(run.exit_code, 130);
  EXPECT_EQ(run.err, "polarline: ended by --stop-after; sets are left over\n");
  EXPECT_EQ(linesOf(run).size(), 1U);
}

TEST_F(BatchCommand, LeavesWhatIsThereAndPartsTheList) {
  const std::string path = list(3);
  EXPECT_EQ(linesOf(batch({path, "--shard", "2/2"})).size(), 1U);
  options.environment.insert(options.environment.end(),
                             {"SLURM_ARRAY_TASK_ID=7", "SLURM_ARRAY_TASK_COUNT=2", "SLURM_ARRAY_TASK_MIN=5",
                              "SLURM_ARRAY_TASK_MAX=7", "SLURM_ARRAY_TASK_STEP=2"});
  const auto by_array = linesOf(batch({path}));
  ASSERT_EQ(by_array.size(), 1U);
  EXPECT_EQ(by_array[0]["state"], "there");
  const auto all = linesOf(batch({path, "--shard", "1/1"}));
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[0]["state"], "judged");
  EXPECT_EQ(all[1]["state"], "there");
  EXPECT_EQ(all[2]["state"], "judged");
}

TEST_F(BatchCommand, RefusesWhatItCannotUseBeforeItBegins) {
  const std::string path = list(1);
  for (const auto& [arguments, words] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{path, "--shard", "3/2"}, "--shard 3/2: K/N was wanted"},
           {{path, "--limit", "dy_maens<=1"}, "dy_means"},
           {{path, "--pairs", "x"}, "--pairs x: the first and the last pair"},
           {{path, "--watch", store}, "one of the three"},
           {{path, "--make-store"}, "one of the three"},
           {{}, "one of the three"},
           {{set.parent.file("none")}, "cannot be read"},
           {{set.parent.write("bad.txt", "a\nb\tc\n")}, "bad.txt, line 2: 'c' was found; key=value was wanted"}}) {
    const CommandRun run = batch(arguments);
    EXPECT_EQ(run.exit_code, 2) << words;
    EXPECT_THAT(run.err, HasSubstr(words));
    EXPECT_FALSE(fs::exists(store));
  }
}

TEST_F(BatchCommand, BeginsNoStoreWhereOneHasToBe) {
  const std::string path = list(1);
  for (const bool is_mount_point : {false, true}) {
    if (is_mount_point) fs::create_directory(store);
    const CommandRun away = batch({path, "--existing"});
    EXPECT_EQ(away.exit_code, 4);
    EXPECT_EQ(away.out, "");
    EXPECT_THAT(away.err, HasSubstr("the store is away: it has no polarline-store.json"));
  }
  const CommandRun refused = batch({"--make-store"});
  EXPECT_EQ(refused.exit_code, 4);
  EXPECT_THAT(refused.err, HasSubstr("perhaps its disk is not mounted"));
  EXPECT_TRUE(fs::is_empty(store));
  fs::remove(store);
  for (int k = 0; k < 2; ++k) {  // Once made it stays as it is.
    const CommandRun made = batch({"--make-store"});
    EXPECT_EQ(made.exit_code, 0) << made.err;
    EXPECT_EQ(made.out, "");
  }
  EXPECT_EQ(linesOf(batch({path, "--existing"})).at(0)["state"], "judged");
}

TEST_F(BatchCommand, TellsItsSettingsToTheResultsAlsoWithoutMetadata) {
  const std::string path = set.parent.write("list.txt", set.folder.string() + "\n");
  EXPECT_EQ(batch({path}).exit_code, 0);
  EXPECT_EQ(batch({path, "--limit", "dy_means<=5"}).exit_code, 0);
  const made_store::Results results;
  results.merge({store});
  EXPECT_EQ(results.one("SELECT count(DISTINCT settings), min(length(settings)) FROM sets"), "2|64");
}

TEST_F(BatchCommand, WritesWhatItCameToAsJson) {
  const std::string path = list(2);
  const std::string file = set.parent.file("outcome.json");
  const CommandRun first = batch({path, "--json", file});
  EXPECT_EQ(linesOf(first).size(), 2U);
  EXPECT_EQ(DocumentCheck::of("batch-outcome").parsed(TempFolder::contentOf(file))["judged"], 2);
  const CommandRun again = batch({path, "--json", "-"});  // Nothing else is there then.
  EXPECT_EQ(DocumentCheck::of("batch-outcome").parsed(again.out)["there"], 2);
  for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{{"--stop-after", "-1"},
                                                                                     {"--grace", "-1"},
                                                                                     {"--grace", "nan"},
                                                                                     {"--grace", "inf"},
                                                                                     {"--claim-timeout", "-1"}}) {
    const CommandRun run = batch({path, wrong[0], wrong[1]});
    EXPECT_EQ(run.exit_code, 2) << wrong[0] << " " << wrong[1];
    EXPECT_THAT(run.err, HasSubstr(wrong[0] + ": "));
  }
  const CommandRun refused = batch({path, "--json", path});
  EXPECT_EQ(refused.exit_code, 2);
  EXPECT_THAT(refused.err, HasSubstr("is an input"));
}

TEST_F(BatchCommand, KeepsTheMetadataOfTheFirstOfTwinLinesWhicheverPartComesFirst) {
  fs::copy(set.folder, set.parent.file("twin"));
  const std::string path = set.parent.write(
      "list.txt", set.folder.string() + "\tserial=first\n" + set.parent.file("twin") + "\tserial=second\n");
  for (const auto& parts : {std::vector{"1/2", "2/2"}, std::vector{"2/2", "1/2"}, std::vector{"1/1"}}) {
    fs::remove_all(store);
    for (const char* part : parts) EXPECT_EQ(batch({path, "--shard", part}).exit_code, 0);
    const made_store::Results results;
    results.merge({store});
    EXPECT_EQ(results.one("SELECT serial FROM sets"), "first") << parts[0];
  }
}

TEST_F(BatchCommand, PrintsOnlyFailuresWhenQuiet) {
  const std::string path = list(1);
  set.parent.write("list.txt", TempFolder::contentOf(path) + set.parent.file("none") + "\n");
  const CommandRun run = batch({path, "--quiet"});
  EXPECT_EQ(run.exit_code, 2);
  const auto lines = linesOf(run);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0]["set"], set.parent.file("none"));
}

TEST_F(BatchCommand, JudgesOnThoughNobodyReads) {
  options.out = "/dev/full";
  const CommandRun run = batch({list(2)});
  EXPECT_EQ(run.exit_code, 4);
  options.out.clear();
  for (const nlohmann::json& line : linesOf(batch({set.parent.file("list.txt")}))) EXPECT_EQ(line["state"], "there");
}

TEST_F(BatchCommand, FinishesTheSetAtHandAtSigterm) {
  const std::string path = list(20);
  options.watch = [](const std::string& out) { return out.empty() ? 0 : SIGTERM; };
  const CommandRun run = batch({path});
  EXPECT_EQ(run.exit_code, 130);
  EXPECT_THAT(run.err, HasSubstr("interrupted"));
  const auto lines = linesOf(run);
  EXPECT_LT(lines.size(), 20U);
  for (const nlohmann::json& line : lines) EXPECT_EQ(line["verdict"], "pass");
  nothingOpen();
}

TEST_F(BatchCommand, EndsSoonAtSigint) {
  set.repeat(200);  // A set that takes its time.
  options.seconds_to_signal = 0.3;
  const CommandRun run = batch({set.parent.write("list.txt", set.folder.string() + "\n")});
  EXPECT_EQ(run.exit_code, 130);
  EXPECT_LT(run.seconds_from_signal, 1.5 * SLOWNESS);
  EXPECT_TRUE(linesOf(run).empty());
  nothingOpen();
}

TEST_F(BatchCommand, DropsTheSetWhenTheGraceIsOver) {
  set.repeat(400);
  options.seconds_to_signal = 0.3;
  options.late_signal = SIGTERM;
  const CommandRun run = batch({set.parent.write("list.txt", set.folder.string() + "\n"), "--grace", "0.2"});
  EXPECT_EQ(run.exit_code, 130);
  EXPECT_GE(run.seconds_from_signal, 0.2);
  EXPECT_LT(run.seconds_from_signal, 2.0 * SLOWNESS);
  EXPECT_TRUE(linesOf(run).empty());
  nothingOpen();
}

TEST_F(BatchCommand, TakesSetsThatAStationPutsDown) {
  const std::string inbox = set.parent.file("inbox");
  fs::create_directory(inbox);
  fs::copy(set.folder, inbox + "/one");
  std::ofstream(inbox + "/one/ready") << "serial=A1\n";
  options.watch = [](const std::string& out) { return out.empty() ? 0 : SIGTERM; };
  const CommandRun run = batch({"--watch", inbox});
  EXPECT_EQ(run.exit_code, 130);
  const auto lines = linesOf(run);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0]["set"], inbox + "/one");
  EXPECT_EQ(lines[0]["verdict"], "pass");
}

TEST_F(BatchCommand, ShowsItsProgressOnATerminal) {
  options.columns = 80;
  options.environment.emplace_back("TERM=xterm");
  const CommandRun run = batch({list(2)});
  EXPECT_THAT(run.out, HasSubstr("set 1 of 2"));
  EXPECT_THAT(run.out, HasSubstr("2 sets: 2 judged, 0 already there."));
}

}  // namespace
