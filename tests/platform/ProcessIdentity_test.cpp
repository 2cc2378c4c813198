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

TEST(ProcessIdentity, InANameTellsWhoIsGone) {
  const Child child;
  const Identity own = process_identity::own();
  const std::string name = process_identity::inName(own) + "-12-3";
  EXPECT_FALSE(process_identity::isGoneByName(name));
  Identity dead = own;
  dead.process = child.process;
  child.finish();
  EXPECT_TRUE(process_identity::isGoneByName(process_identity::inName(dead) + "-12-3"));
  Identity elsewhere = dead;
  elsewhere.machine += "x";
  EXPECT_FALSE(process_identity::isGoneByName(process_identity::inName(elsewhere)));
  Identity unknown = dead;
  unknown.began = "";
  EXPECT_FALSE(process_identity::isGoneByName(process_identity::inName(unknown)));
  for (const char* other : {"", "-", "1-2-3", "x-y-z", "99999999999999999999-1-1"})
    EXPECT_FALSE(process_identity::isGoneByName(other)) << other;
}

}  // namespace
