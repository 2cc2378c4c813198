#include "platform/ProcessIdentity.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using process_identity::Identity;
using process_identity::isGone;

/// A process that ends when the pipe does.
struct Child {
  int ends[2] = {-1, -1};
  pid_t process = -1;

  Child() {
    if (pipe(ends) != 0) return;
    process = fork();
    if (process != 0) return;
    close(ends[1]);
    char byte = 0;
    _exit(read(ends[0], &byte, 1) == 0 ? 0 : 1);
  }
  void finish() const {
    close(ends[0]);
    close(ends[1]);
    waitpid(process, nullptr, 0);
  }
};

TEST(ProcessIdentity, OfThisProcessIsThere) {
  const Identity own = process_identity::own();
  EXPECT_EQ(own.process, getpid());
  EXPECT_NE(own.host, "");
  EXPECT_NE(own.began, "");
  EXPECT_FALSE(isGone(own));
}

TEST(ProcessIdentity, EndsWithTheProcess) {
  const Child child;
  Identity identity = process_identity::own();
  identity.process = child.process;
  EXPECT_TRUE(isGone(identity));  // That number, and another begin.
  child.finish();
  EXPECT_TRUE(isGone(identity));
}

TEST(ProcessIdentity, OfAnotherMachineIsUnknown) {
  const Child child;
  child.finish();
  Identity identity = process_identity::own();
  identity.process = child.process;
  identity.machine += "x";
  EXPECT_FALSE(isGone(identity));
  identity.machine = "";
  EXPECT_FALSE(isGone(identity));
}

TEST(ProcessIdentity, OfNoProcessIsUnknown) {
  Identity identity = process_identity::own();
  for (const long number : {0L, -1L}) {  // To the system these are groups of processes.
    identity.process = number;
    EXPECT_FALSE(isGone(identity));
  }
}

}  // namespace
