#include "platform/PictureRedirection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/Files.h"
#include "support/TempFolder.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Collector final : public files::PictureSink {
 public:
  explicit Collector(bool takes = true) : takes_(takes) {}
  bool take(const std::string& path, const cv::Mat& picture) override {
    asked.push_back(path + " " + std::to_string(picture.cols));
    return takes_;
  }
  std::vector<std::string> asked;

 private:
  bool takes_;
};

const cv::Mat& picture() {
  static const cv::Mat kPicture = cv::Mat::zeros(2, 3, CV_8UC1);
  return kPicture;
}

TEST(PictureRedirection, HandsPicturesToTheSinkWhileItLives) {
  TempFolder folder;
  Collector sink;
  {
    const files::PictureRedirection redirection(sink);
    EXPECT_TRUE(files::writeImage("a\\b.png", picture()));
  }
  EXPECT_TRUE(files::writeImage(folder.file("c.png"), picture()));
  EXPECT_THAT(sink.asked, ElementsAre("a\\b.png 3"));
  EXPECT_TRUE(files::exists(folder.file("c.png")));
}

TEST(PictureRedirection, WritesWhatTheSinkLeaves) {
  TempFolder folder;
  Collector sink(false);
  const files::PictureRedirection redirection(sink);
  EXPECT_TRUE(files::writeImage(folder.file("c.png"), picture()));
  EXPECT_TRUE(files::exists(folder.file("c.png")));
  EXPECT_EQ(sink.asked.size(), 1U);
}

TEST(PictureRedirection, NestsAndIsOfOneThread) {
  TempFolder folder;
  Collector outer;
  Collector inner;
  const files::PictureRedirection first(outer);
  {
    const files::PictureRedirection second(inner);
    files::writeImage("x.png", picture());
  }
  files::writeImage("y.png", picture());
  std::thread([&] { files::writeImage(folder.file("z.png"), picture()); }).join();
  EXPECT_THAT(inner.asked, ElementsAre("x.png 3"));
  EXPECT_THAT(outer.asked, ElementsAre("y.png 3"));
  EXPECT_TRUE(files::exists(folder.file("z.png")));
}

}  // namespace
