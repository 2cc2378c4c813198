#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/imgcodecs.hpp>
#include <string>

#include "polarline/detect.h"
#include "polarline/errors.h"
#include "tests/support/TempFolder.h"

namespace {

std::string refusalOf(const std::string& path) {
  try {
    polarline::readPicture(path);
  } catch (const polarline::InputError& error) {
    return error.what();
  }
  return "none";
}

TEST(Picture, IsReadAsItIsStored) {
  const TempFolder folder;
  const cv::Mat deep(4, 6, CV_16UC1, cv::Scalar(40000));
  const cv::Mat read = polarline::readPicture(folder.write("a b\".png", polarline::pngOf(deep)));
  ASSERT_EQ(read.type(), CV_16UC1);
  EXPECT_EQ(cv::norm(read, deep, cv::NORM_INF), 0.0);
}

TEST(Picture, ThatIsNoneIsRefusedByItsName) {
  const TempFolder folder;
  EXPECT_THAT(refusalOf(folder.file("none.png")), testing::EndsWith("none.png: there is no such file"));
  EXPECT_THAT(refusalOf(folder.path().string()), testing::HasSubstr("is a folder"));
  EXPECT_THAT(refusalOf(folder.write("text.png", "hello")), testing::HasSubstr("text.png: can't be decoded; a PNG, "));
  EXPECT_THAT(refusalOf(folder.write("empty.png", "")), testing::HasSubstr("can't be decoded: it is empty; a PNG, "));
}

TEST(Picture, ThatIsCutOffIsRefused) {
  const TempFolder folder;
  cv::Mat noise(40, 60, CV_8UC1);
  cv::randu(noise, 0, 255);
  for (const char* name : {"half.png", "half.jpg"}) {
    cv::imwrite(folder.file(name), noise);
    std::filesystem::resize_file(folder.file(name), std::filesystem::file_size(folder.file(name)) / 2);
    EXPECT_THAT(refusalOf(folder.file(name)), testing::HasSubstr("is cut off")) << name;
  }
}

}  // namespace
