#include "OneSet.h"
#include "polarline/exit_code.h"
#include "store/work/ClaimText.h"
#include "store/work/Judging.h"
#include "store/work/Names.h"
#include "store/work/StoreFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

struct Batch : OneSet {
  std::vector<BatchState> states() const {
    std::vector<BatchState> found;
    for (const BatchResult& each : told) found.push_back(each.state);
    return found;
  }
  std::vector<BatchSet> three() const {
    return {listed(), {2, set.parent.file("none"), {}}, copy("tight", "dy_means<=0")};
  }
};

TEST_F(Batch, IsNotEndedByABadSet) {
  const BatchOutcome outcome = batch(three(), options);
  EXPECT_EQ(outcome.sets, 3U);
  EXPECT_EQ(outcome.judged, 3U);
  EXPECT_EQ(outcome.failed, 1U);
  EXPECT_EQ(outcome.exit_code, kUnusable);
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[0].exit_code, kDone);
  EXPECT_EQ(told[1].exit_code, kUnusable);
  EXPECT_EQ(told[2].exit_code, kLimitExceeded);
  EXPECT_EQ(documents().size(), 3U);
}

TEST_F(Batch, EndsWithTheSameCodeWhenAllIsThere) {
  batch({listed(), copy("tight", "dy_means<=0")}, options);
  told.clear();
  const BatchOutcome outcome = batch({listed(), {2, set.parent.file("tight"), {}}}, options);
  EXPECT_THAT(states(), ElementsAre(BatchState::kThere, BatchState::kThere));
  EXPECT_EQ(outcome.exit_code, kLimitExceeded);
}

TEST_F(Batch, StopsAfterSoManyFailures) {
  options.stop_after = 1;
  const BatchOutcome outcome = batch({{1, "none", {}}, {2, "nowhere", {}}, listed()}, options);
  EXPECT_EQ(outcome.sets, 1U);
  EXPECT_EQ(outcome.exit_code, kInterrupted);
  // With the last of the list as many had failed, but nothing was left over.
  EXPECT_EQ(batch({listed(), {1, "none", {}}}, options).exit_code, kUnusable);
}

TEST_F(Batch, FinishesTheSetAtHandWhenItIsAskedToEnd) {
  options.go_on_with_next = [this] { return told.empty(); };
  const BatchOutcome outcome = batch(three(), options);
  EXPECT_THAT(states(), ElementsAre(BatchState::kJudged));
  EXPECT_EQ(outcome.exit_code, kInterrupted);
  EXPECT_EQ(documents().size(), 1U);
}

TEST_F(Batch, AsksNobodyAboutWhatIsDone) {
  options.go_on_with_next = [this] { return told.size() < 3; };
  EXPECT_EQ(batch(three(), options).exit_code, kUnusable);
}

TEST_F(Batch, WaitsForWhatOthersHaveAndTakesOverFromTheDead) {
  const Set files = filesOf(listed(), options);
  const StoredPlace held = StoreFolder(store).madePlace(names::byId(idOf(files, options), names::settingsHash({})));
  std::ofstream(held.claim()) << claimText({"elsewhere", "another", 1, "1"});
  options.claim_timeout = 0.4;
  const BatchSet other = copy("other", "dy_means<=1");
  batch({listed(), other}, options);
  EXPECT_THAT(states(), ElementsAre(BatchState::kJudged, BatchState::kJudged));
  EXPECT_EQ(told[0].set, other.folder);  // Others come first.
  EXPECT_EQ(told[1].set, listed().folder);
}

TEST_F(Batch, TellsItsEndInWords) {
  EXPECT_EQ(batchText({3, 2, 1, 0, 0}), "3 sets: 2 judged, 1 already there.");
  EXPECT_EQ(batchText({1, 1, 0, 1, 2}), "1 set: 1 judged, 0 already there; 1 without a verdict.");
}

}  // namespace
}  // namespace polarline
