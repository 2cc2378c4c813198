#include "platform/OutputFile.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

#include "platform/Files.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"

namespace {

TEST(OutputFile, TellsTheWatchOfItsFolderOnly) {
  const TempFolder folder;
  const TempFolder other;
  const files::WriteWatch watch(folder.path().string());
  const files::WriteWatch elsewhere(other.path().string());
  files::OutputFile(folder.file("whole.csv")) << "1";
  files::OutputFile("") << "1";
  EXPECT_FALSE(watch.failed());
  {
    const FullDevice full;
    files::OutputFile(folder.file("cut.csv")) << "1";
  }
  EXPECT_TRUE(watch.failed());
  EXPECT_FALSE(elsewhere.failed());
  EXPECT_EQ(folder.read("whole.csv"), "1");
}

TEST(OutputFile, ThatDoesNotOpenIsTold) {
  const TempFolder folder;
  const files::WriteWatch watch(folder.path().string());
  files::OutputFile(folder.file("none/a.csv")) << "1";
  EXPECT_TRUE(watch.failed());
}

TEST(OutputFile, PicturesAreToldToo) {
  const TempFolder folder;
  const cv::Mat picture(8, 8, CV_8UC1, cv::Scalar(7));
  const files::WriteWatch watch(folder.path().string());
  EXPECT_TRUE(files::writeImage(folder.file("whole.png"), picture));
  EXPECT_FALSE(watch.failed());
  const FullDevice full;
  files::writeImage(folder.file("cut.png"), picture);
  EXPECT_TRUE(watch.failed());
}

}  // namespace
