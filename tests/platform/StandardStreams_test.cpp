#include "platform/StandardStreams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/TempFolder.h"

namespace {

TEST(StandardStreams, ThatWereClosedGiveTheirPlacesToNoFile) {
  const TempFolder folder;
  const std::string path = folder.file("f");
  const pid_t process = fork();
  if (process == 0) {
    close(STDIN_FILENO);
    close(STDOUT_FILENO);
    standard_streams::keepPlaces();
    const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    const bool fails = write(STDOUT_FILENO, "x", 1) == -1;
    _exit(file > STDERR_FILENO && fails ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(waitpid(process, &status, 0), process);
  EXPECT_EQ(status, 0);
}

TEST(StandardStreams, ThatAreOpenStayAndNothingElseDoes) {
  const int before = dup(STDOUT_FILENO);
  close(before);
  standard_streams::keepPlaces();
  const int after = dup(STDOUT_FILENO);
  close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
