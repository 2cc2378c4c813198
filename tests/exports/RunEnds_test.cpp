// Ends of a run: by the callback, and by the lists of its images.
#include <gtest/gtest.h>

#include "support/MemoryRun.h"

namespace {

TEST(RunEnds, CallbackAtTheEndStopsARunThatHasNoRecord) {
  MemoryRun two(MemoryRun::twoPairs());
  two.blank(0, 0);
  two.blank(0, 1);
  const std::string polar = two.set.polarWith({{"discalsave", "0"}});
  EXPECT_EQ(two.run(polar).status, polar_status::kNoResults);
  two.stop_at = 100.0F;
  const RunOutcome stopped = two.run(polar);
  EXPECT_EQ(stopped.status, polar_status::kStoppedByCallback);
  EXPECT_EQ(stopped.error_text, "Callback Terminated");
  EXPECT_TRUE(stopped.records.empty());
  two.images = {{}, {}};
  EXPECT_EQ(two.run(polar).status, polar_status::kStoppedByCallback);
}

struct Stop {
  const char* name;
  float at;
  std::size_t rows;
};
class RunEndsStoppedFrames : public ::testing::TestWithParam<Stop> {};

TEST_P(RunEndsStoppedFrames, HaveTheRowsBeforeAndNoLastLineEnd) {
  MemoryRun two(MemoryRun::twoFrames());
  ASSERT_EQ(two.run(two.set.polarText()).status, 0);
  const std::string whole = two.folder.read("frame_result.csv");
  two.stop_at = GetParam().at;
  const RunOutcome run = two.run(two.set.polarText());
  EXPECT_EQ(run.status, polar_status::kStoppedByCallback);
  EXPECT_EQ(run.error_text, "Callback Terminated!");
  EXPECT_TRUE(run.records.empty());
  EXPECT_EQ(two.reported.back(), GetParam().at);

  std::size_t end = 0;
  for (std::size_t line = 0; line <= GetParam().rows; ++line) end = whole.find('\n', end) + 1;
  EXPECT_EQ(two.folder.read("frame_result.csv"), whole.substr(0, end));
}

INSTANTIATE_TEST_SUITE_P(PairSteps, RunEndsStoppedFrames,
                         ::testing::Values(Stop{"BeforeTheFirst", 0.003F, 0}, Stop{"BehindTheFirst", 49.503F, 0},
                                           Stop{"BehindTheSecond", 99.003F, 1}),
                         [](const auto& stop) { return stop.param.name; });

struct Kind {
  const char* name;
  const RenderedSet& (*set)();
};
class RunEndsLongerRightList : public ::testing::TestWithParam<Kind> {};

TEST_P(RunEndsLongerRightList, IsFineSinceTheLeftOneCounts) {
  MemoryRun two(GetParam().set());
  two.images[1].push_back(two.images[1][0]);
  two.images[1].emplace_back();
  const RunOutcome run = two.run(two.set.polarText());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.records.size(), 2U);
  EXPECT_EQ(two.reported, (std::vector<float>{0.001F, 0.002F, 0.003F, 49.503F, 99.003F, 100.0F}));
}

INSTANTIATE_TEST_SUITE_P(Runs, RunEndsLongerRightList,
                         ::testing::Values(Kind{"ImageSet", MemoryRun::twoPairs}, Kind{"Frames", MemoryRun::twoFrames}),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
