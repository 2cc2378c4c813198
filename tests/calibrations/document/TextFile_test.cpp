#include "calibrations/document/TextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/BoundedInput.h"
#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using calibrations::textOfFile;

std::string refused(const std::string& path) {
  try {
    textOfFile(path);
    return {};
  } catch (const polarline::InputError& error) {
    return error.what();
  }
}

TEST(TextFile, IsReadWithoutAByteOrderMark) {
  const TempFolder folder;
  EXPECT_EQ(textOfFile(folder.write("a", "\xEF\xBB\xBFkey: 1\r\n")), "key: 1\r\n");
}

TEST(TextFile, IsAFile) {
  const TempFolder folder;
  EXPECT_EQ(refused(folder.file("a")), folder.file("a") + ": there is no such file");
  EXPECT_EQ(refused(folder.path().string()), folder.path().string() + ": is a folder; a calibration file was wanted");
  EXPECT_EQ(refused(""), "there is no such file");
}

TEST(TextFile, HoldsText) {
  const TempFolder folder;
  const std::string path = folder.file("a");
  for (const char* text : {"", " \n\t\r\n", "\xEF\xBB\xBF\n"}) {
    folder.write("a", text);
    EXPECT_EQ(refused(path), path + ": is empty");
  }
  folder.write("a", std::string("K\0", 2));
  EXPECT_EQ(refused(path), path + ": is binary; a text was wanted");
}

TEST(TextFile, IsNotEndless) {
  EXPECT_EQ(refused("/dev/zero"), "/dev/zero: is longer than 16777216 characters; a calibration file was wanted");
}

}  // namespace
