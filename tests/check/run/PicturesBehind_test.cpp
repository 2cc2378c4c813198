#include "check/run/PicturesBehind.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/Files.h"
#include "platform/OutputFile.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

cv::Mat grey(int value) { return {20, 30, CV_8UC1, cv::Scalar(value)}; }

int greyOf(const std::string& path) {
  const cv::Mat picture = files::readImage(path);
  return picture.empty() ? -1 : picture.at<unsigned char>(7, 7);
}

TEST(PicturesBehind, WritesAllInTheirOrder) {
  // A picture has 600 bytes: one, two, all of them wait.
  for (const std::size_t most : {std::size_t{1}, std::size_t{1200}, std::size_t{1} << 20U}) {
    TempFolder folder;
    PicturesBehind behind(most);
    for (int k = 0; k < 20; ++k) {
      EXPECT_TRUE(files::writeImage(folder.file(std::to_string(k) + ".png"), grey(k)));
      EXPECT_TRUE(files::writeImage(folder.file("last.png"), grey(k)));
    }
    behind.finish();
    for (int k = 0; k < 20; ++k) EXPECT_EQ(greyOf(folder.file(std::to_string(k) + ".png")), k) << most;
    EXPECT_EQ(greyOf(folder.file("last.png")), 19);
  }
}

TEST(PicturesBehind, WritesWhatThePictureWas) {
  TempFolder folder;
  PicturesBehind behind;
  cv::Mat picture(1500, 1500, CV_8UC1, cv::Scalar(40));
  files::writeImage(folder.file("first.png"), picture);
  files::writeImage(folder.file("drawn.png"), picture);
  picture = cv::Scalar(200);
  behind.finish();
  EXPECT_EQ(greyOf(folder.file("first.png")), 40);
  EXPECT_EQ(greyOf(folder.file("drawn.png")), 40);
}

TEST(PicturesBehind, LeavesAnEmptyPictureToTheRun) {
  TempFolder folder;
  const PicturesBehind behind;
  EXPECT_THROW(files::writeImage(folder.file("none.png"), cv::Mat()), cv::Exception);
}

TEST(PicturesBehind, TellsTheWatchWhatCouldNotBeWritten) {
  TempFolder folder;
  const files::WriteWatch watch(folder.path().string());
  PicturesBehind behind;
  files::writeImage(folder.file("there.png"), grey(1));
  behind.finish();
  EXPECT_FALSE(watch.failed());
  files::writeImage(folder.file("no folder/picture.png"), grey(1));
  behind.finish();
  EXPECT_TRUE(watch.failed());
}

TEST(PicturesBehind, EndsWithoutWritingWhatStillWaits) {
  TempFolder folder;
  constexpr int kMany = 100;  // 64 MB hold them all.
  {
    const PicturesBehind behind;
    const cv::Mat large(800, 800, CV_8UC1, cv::Scalar(3));  // Some milliseconds each.
    for (int k = 0; k < kMany; ++k) files::writeImage(folder.file(std::to_string(k) + ".png"), large);
  }
  EXPECT_FALSE(files::exists(folder.file(std::to_string(kMany - 1) + ".png")));
  EXPECT_TRUE(files::writeImage(folder.file("after.png"), grey(5)));  // By this thread again.
  EXPECT_EQ(greyOf(folder.file("after.png")), 5);
}

}  // namespace
}  // namespace polarline
