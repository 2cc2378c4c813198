#include "platform/EndingSignals.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace {

/// How a process of its own ended that holds the signals, sends one to itself and waits.
int endOf(int signal) {
  const pid_t process = fork();
  if (process == 0) {
    ending_signals::hold();
    kill(getpid(), signal);
    ending_signals::endWith(ending_signals::wait() ? 7 : 8, "");
  }
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(EndingSignals, WaitUntilSomebodyAsks) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) EXPECT_EQ(endOf(signal), 7) << signal;
}

using ending_signals::Request;

Request requestBy(int signal) {
  const pid_t process = fork();
  if (process == 0) {
    ending_signals::hold();
    if (signal != 0) kill(getpid(), signal);
    const std::chrono::milliseconds most(signal == SIGINT ? -1 : 20);
    ending_signals::endWith(static_cast<int>(ending_signals::waitFor(most)), "");
  }
  int status = 0;
  waitpid(process, &status, 0);
  return static_cast<Request>(WEXITSTATUS(status));
}

TEST(EndingSignals, TellWhoCanWait) {
  EXPECT_EQ(requestBy(SIGTERM), Request::kInOwnTime);
  EXPECT_EQ(requestBy(SIGINT), Request::kAtOnce);
  EXPECT_EQ(requestBy(SIGHUP), Request::kAtOnce);
  EXPECT_EQ(requestBy(0), Request::kNone);
}

/// As a linear algebra library starts some before `main`: the system hands a signal to any thread that does not keep it
/// back.
TEST(EndingSignals, ComeThroughThreadsThatWereThereBefore) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const pid_t process = fork();
    if (process == 0) {
      std::thread([] { pause(); }).detach();
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      ending_signals::hold();
      kill(getpid(), signal);
      std::this_thread::sleep_for(std::chrono::milliseconds(20));  // Nobody waits for it yet.
      ending_signals::endWith(ending_signals::wait() ? 7 : 8, "");
    }
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << signal;
  }
}

TEST(EndingSignals, HoldBackNoOthers) { EXPECT_EQ(endOf(SIGKILL), -1); }

TEST(EndingSignals, HoldTurnsABrokenPipeIntoAFailedWrite) {
  const pid_t process = fork();
  if (process == 0) {
    int ends[2];
    if (pipe(ends) != 0) _exit(1);
    close(ends[0]);
    ending_signals::hold();
    _exit(write(ends[1], "x", 1) < 0 ? 5 : 6);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 5);
}

}  // namespace
