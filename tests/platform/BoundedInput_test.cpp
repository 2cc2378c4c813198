#include "platform/BoundedInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <vector>

#include "platform/Files.h"

namespace {

/// A source that never ends.
class Endless : public std::streambuf {
 public:
  Endless() { block_.fill('x'); }

 protected:
  int_type underflow() override {
    setg(block_.data(), block_.data(), block_.data() + block_.size());
    return 'x';
  }

 private:
  std::array<char, 4096> block_{};
};

/// The exception's text names the limit.
auto refuses() { return testing::ThrowsMessage<std::length_error>("an input text of more than 16777216 characters"); }

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; bounded::nextLine(stream, line);) lines.push_back(line);
  EXPECT_TRUE(stream.eof());
  return lines;
}

TEST(BoundedInputNextLine, EndsAtEachLineFeed) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(linesOf(""), Lines());
  EXPECT_EQ(linesOf("\n"), Lines{""});
  EXPECT_EQ(linesOf("a\n\nb"), (Lines{"a", "", "b"}));
  EXPECT_EQ(linesOf(" a \r\nb\r\n"), (Lines{" a \r", "b\r"}));
}

TEST(BoundedInputNextLine, TakesEveryOtherCharacterAsItIs) {
  std::string all;
  for (int value = 0; value < 256; ++value) {
    if (value != '\n') all.push_back(static_cast<char>(value));
  }
  EXPECT_EQ(linesOf(all + "\n" + all), (std::vector<std::string>{all, all}));
}

TEST(BoundedInputNextLine, AnyLengthIsRead) {
  for (const std::size_t size : {4093U, 4094U, 4095U, 4096U, 4097U, 8189U, 8190U, 8191U, 8192U, 20000U}) {
    const std::string line(size, 'x');
    EXPECT_EQ(linesOf(line), std::vector<std::string>{line});
    EXPECT_EQ(linesOf(line + "\n"), std::vector<std::string>{line});
    EXPECT_EQ(linesOf(line + "\n\n" + line + "\ny"), (std::vector<std::string>{line, "", line, "y"}));
  }
}

TEST(BoundedInputNextLine, AFailedStreamHasNone) {
  std::ifstream stream = files::openInput("");
  std::string line = "before";
  EXPECT_FALSE(bounded::nextLine(stream, line));
  EXPECT_EQ(line, "");
}

TEST(BoundedInputNextLine, TheLongestOneIsRead) {
  const std::string longest(bounded::kLongestText, 'x');
  EXPECT_EQ(linesOf(longest + "\n" + longest), (std::vector<std::string>{longest, longest}));
}

TEST(BoundedInputNextLine, OneWithoutAnEndIsRefused) {
  Endless source;
  std::istream stream(&source);
  std::string line;
  EXPECT_THAT([&] { bounded::nextLine(stream, line); }, refuses());
}

TEST(BoundedInputReadText, IsTheWholeRest) {
  const std::string text("a\0b\n\xFF\r\n", 7);
  std::istringstream stream(text);
  EXPECT_EQ(bounded::readText(stream), text);
  std::ifstream closed;
  EXPECT_EQ(bounded::readText(closed), "");
}

TEST(BoundedInputReadText, TheLongestOneIsRead) {
  const std::string longest(bounded::kLongestText, '\n');
  std::istringstream stream(longest);
  EXPECT_EQ(bounded::readText(stream), longest);
}

TEST(BoundedInputReadText, OneWithoutAnEndIsRefused) {
  Endless source;
  std::istream stream(&source);
  EXPECT_THAT([&] { bounded::readText(stream); }, refuses());
}

}  // namespace
