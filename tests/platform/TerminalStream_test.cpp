#include "platform/TerminalStream.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include "support/TempFolder.h"

namespace {

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

TEST(TerminalStream, KnowsATerminalAndItsWidth) {
  int ours = -1;
  int theirs = -1;
  const winsize size{24, 47, 0, 0};
  ASSERT_EQ(openpty(&ours, &theirs, nullptr, nullptr, &size), 0);
  const File terminal(fdopen(theirs, "w"));
  EXPECT_TRUE(terminal_stream::isTerminal(terminal.get()));
  EXPECT_EQ(terminal_stream::columns(terminal.get()), 47U);
  close(ours);
}

TEST(TerminalStream, KnowsThatAFileIsNone) {
  const TempFolder folder;
  const File file(std::fopen(folder.file("f").c_str(), "w"));
  EXPECT_FALSE(terminal_stream::isTerminal(file.get()));
  EXPECT_FALSE(terminal_stream::columns(file.get()));
}

TEST(TerminalStream, TakenKeepsWhatOthersWriteOffTheErrors) {
  const TempFolder folder;
  const pid_t process = fork();
  if (process == 0) {
    if (std::freopen(folder.file("errors").c_str(), "w", stderr) == nullptr) _exit(1);
    std::FILE* const ours = terminal_stream::takeStandardError();
    std::fputs("theirs", stderr);
    std::fputs("ours", ours);
    std::fflush(nullptr);
    _exit(0);
  }
  int status = 0;
  waitpid(process, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.read("errors"), "ours");
}

}  // namespace
