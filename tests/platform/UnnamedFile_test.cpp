#include "platform/UnnamedFile.h"

#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "support/FullDevice.h"

namespace {

std::string contentOf(UnnamedFile& file) {
  std::string content;
  file.read([&](const std::string& piece) { content += piece; });
  return content;
}

TEST(UnnamedFile, GivesBackAllThatWasAppended) {
  UnnamedFile file;
  const std::string bytes("a\0\xFF\r\n", 5);
  const std::string many(200000, 'x');  // More than one piece.
  file.append(bytes);
  file.append(many);
  EXPECT_EQ(contentOf(file), bytes + many);
}

TEST(UnnamedFile, ThatMissesAPieceIsNeverRead) {
  UnnamedFile file;
  {
    const FullDevice full;
    EXPECT_THROW(file.append(std::string(200000, 'x')), polarline::OutputError);
  }
  EXPECT_THROW(file.append("more"), polarline::OutputError);
  EXPECT_THROW(contentOf(file), polarline::OutputError);
}

TEST(UnnamedFile, TellsOfTheLastBytesToo) {
  UnnamedFile file;
  file.append("still in the buffer");
  const FullDevice full;
  EXPECT_THROW(contentOf(file), polarline::OutputError);
}

}  // namespace
