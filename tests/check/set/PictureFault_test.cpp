#include "check/set/PictureFault.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

struct PictureFaultOf : ::testing::Test {
  TempFolder folder;

  std::string content(const std::string& name) const {
    cv::Mat picture(64, 64, CV_8UC1);
    cv::randu(picture, 0, 255);
    cv::imwrite(folder.file(name), picture);
    return folder.read(name);
  }
};

TEST_F(PictureFaultOf, AWholePictureIsNotCutOff) {
  for (const char* name : {"a.png", "a.jpg", "a.bmp"}) EXPECT_FALSE(isCutOff(content(name))) << name;
  EXPECT_FALSE(isCutOff(content("a.png") + "padding"));
  EXPECT_FALSE(isCutOff(content("a.jpg") + std::string(100, '\0')));
  EXPECT_FALSE(isCutOff(""));
  EXPECT_FALSE(isCutOff("no picture"));
}

TEST_F(PictureFaultOf, APictureCutAnywhereIsCutOff) {
  for (const char* name : {"a.png", "a.jpg"}) {
    const std::string whole = content(name);
    for (const std::size_t length : {whole.size() / 20, whole.size() / 2, whole.size() - 1})
      EXPECT_TRUE(isCutOff(whole.substr(0, length))) << name << " at " << length;
  }
}

TEST_F(PictureFaultOf, TheEndOfASmallPictureInTheHeaderIsNotThatOfTheLargeOne) {
  const std::string whole = content("a.jpg");
  const std::string small = "\xFF\xE1" + whole;  // As a camera puts it into its header.
  EXPECT_FALSE(isCutOff(whole.substr(0, 2) + small + whole.substr(2)));
  EXPECT_TRUE(isCutOff(whole.substr(0, 2) + small + whole.substr(2, whole.size() / 2)));
}

TEST_F(PictureFaultOf, OnlyAJpegIsLookedAtByItsPath) {
  const std::string jpeg = content("a.jpg");
  EXPECT_FALSE(isCutOffJpeg(folder.file("a.jpg")));
  EXPECT_TRUE(isCutOffJpeg(folder.write("b.jpg", jpeg.substr(0, jpeg.size() / 2))));
  EXPECT_FALSE(isCutOffJpeg(folder.write("b.png", content("a.png").substr(0, 100))));
  EXPECT_FALSE(isCutOffJpeg(folder.file("none.jpg")));
}

TEST_F(PictureFaultOf, SaysWhatIsWrongAndWhatMayReturn) {
  const std::string png = content("a.png");
  EXPECT_EQ(pictureFault(folder.write("b.png", png.substr(0, 100))).text, "can't be decoded: it is cut off");
  EXPECT_EQ(pictureFault(folder.write("c.png", "")).text, "can't be decoded: it is empty");
  EXPECT_EQ(pictureFault(folder.write("d.png", "hello")).text, "can't be decoded");
  EXPECT_EQ(pictureFault(folder.path().string()).text, "can't be read: Is a directory");
  for (const char* name : {"b.png", "c.png", "d.png", "."}) EXPECT_FALSE(pictureFault(folder.file(name)).may_return);
  const PictureFault gone = pictureFault(folder.file("none.png"));
  EXPECT_EQ(gone.text, "can't be read: No such file or directory");
  EXPECT_TRUE(gone.may_return);
}

}  // namespace
}  // namespace polarline
