#include "store/work/Claim.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "polarline/errors.h"
#include "store/work/ClaimText.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using std::chrono::hours;

struct ClaimOfAPlace : ::testing::Test {
  TempFolder folder;
  StoredPlace place{folder.path(), "abcdef"};
  Silence silence{1000.0};

  std::unique_ptr<Claim> take() { return Claim::take(place, silence, 1000.0); }
  void claimElsewhere(hours offset) const {
    folder.write("abcdef.claim", claimText({"elsewhere", "another", 1, "1"}));
    fs::last_write_time(place.claim(), fs::last_write_time(place.claim()) + offset);
  }
};

TEST_F(ClaimOfAPlace, IsOneWorkersAlone) {
  auto first = take();
  ASSERT_TRUE(first);
  EXPECT_TRUE(first->isHeld());
  EXPECT_FALSE(take());
  first.reset();
  EXPECT_TRUE(fs::is_empty(folder.path()));
  EXPECT_TRUE(take());
}

TEST_F(ClaimOfAPlace, TellsItsWorker) {
  const auto claim = take();
  const auto worker = claimant(folder.read("abcdef.claim"));
  ASSERT_TRUE(worker);
  EXPECT_FALSE(process_identity::isGone(*worker));
}

TEST_F(ClaimOfAPlace, IsTakenOverFromTheDeadAlone) {
  claimElsewhere(hours(0));
  EXPECT_FALSE(take());
  claimElsewhere(hours(-1));
  EXPECT_TRUE(take());
}

TEST_F(ClaimOfAPlace, ThatWasTakenOverStaysWithTheOther) {
  auto first = take();
  fs::remove(place.claim());
  claimElsewhere(hours(0));
  EXPECT_FALSE(first->isHeld());
  first.reset();
  EXPECT_TRUE(fs::exists(place.claim()));
}

TEST_F(ClaimOfAPlace, IsTouchedWhileItsWorkerLives) {
  const auto claim = Claim::take(place, silence, 0.3);
  fs::last_write_time(place.claim(), fs::last_write_time(place.claim()) - hours(1));
  const auto before = fs::last_write_time(place.claim());
  for (int k = 0; k < 100 && fs::last_write_time(place.claim()) == before; ++k)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_GT(fs::last_write_time(place.claim()) - before, std::chrono::minutes(59));
}

TEST_F(ClaimOfAPlace, WithoutAFolderIsAFailure) {
  place.folder = folder.path() / "none";
  EXPECT_THROW(take(), OutputError);
}

}  // namespace
}  // namespace polarline
