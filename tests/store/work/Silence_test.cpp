#include "store/work/Silence.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "store/work/ClaimText.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using std::chrono::hours;
using std::chrono::milliseconds;

struct SilenceOfClaims : ::testing::Test {
  TempFolder folder;
  StoredPlace place{folder.path(), "abcdef"};
  const process_identity::Identity own = process_identity::own();
  const process_identity::Identity elsewhere{"elsewhere", "another", 1, "1"};

  void claim(const process_identity::Identity& worker, hours offset = hours(0)) const {
    folder.write("abcdef.claim", claimText(worker));
    fs::last_write_time(place.claim(), fs::last_write_time(place.claim()) + offset);
  }
  static long processThatEnded() {
    const pid_t process = fork();
    if (process == 0) _exit(0);
    waitpid(process, nullptr, 0);
    return process;
  }
};

TEST_F(SilenceOfClaims, OfThisMachineIsThatOfTheProcess) {
  Silence silence(1000.0);
  claim(own);
  EXPECT_FALSE(silence.isDead(place));
  auto gone = own;
  gone.process = processThatEnded();
  claim(gone);
  EXPECT_TRUE(silence.isDead(place));
  auto another = own;  // A new process may bear the number of the old one.
  another.began += "0";
  claim(another);
  EXPECT_TRUE(silence.isDead(place));
}

TEST_F(SilenceOfClaims, OfAnotherMachineIsThatOfTheClaim) {
  Silence silence(1000.0);
  claim(elsewhere);
  EXPECT_FALSE(silence.isDead(place));
  claim(elsewhere, hours(-1));
  EXPECT_TRUE(silence.isDead(place));
}

TEST_F(SilenceOfClaims, BeginsAnewWithEachTouch) {
  Silence silence(0.15);
  claim(elsewhere, hours(24));  // The clock of the store went back a day.
  for (int k = 0; k < 6; ++k) {
    EXPECT_FALSE(silence.isDead(place));
    std::this_thread::sleep_for(milliseconds(40));
    fs::last_write_time(place.claim(), fs::last_write_time(place.claim()) + hours(1));
  }
  EXPECT_FALSE(silence.isDead(place));
  std::this_thread::sleep_for(milliseconds(200));
  EXPECT_TRUE(silence.isDead(place));
}

TEST_F(SilenceOfClaims, OfAClaimWithoutAWorkerIsThatOfTheFile) {
  Silence silence(1000.0);
  folder.write("abcdef.claim", "");
  EXPECT_FALSE(silence.isDead(place));
  fs::last_write_time(place.claim(), fs::last_write_time(place.claim()) - hours(1));
  EXPECT_TRUE(silence.isDead(place));
}

TEST_F(SilenceOfClaims, NeedsAClaim) { EXPECT_FALSE(Silence(0.0).isDead(place)); }

}  // namespace
}  // namespace polarline
