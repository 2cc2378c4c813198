#include "check/init/PictureCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::Pair;

class PictureCheck : public testing::Test {
 protected:
  std::string picture(const std::string& name, int width, int height, int type) const {
    cv::imwrite(folder_.file(name), cv::Mat(height, width, type, cv::Scalar::all(40)));
    return folder_.file(name);
  }
  static std::string refusal(const std::vector<init::PicturePair>& pairs) {
    try {
      init::checkPictures(pairs, {});
    } catch (const polarline::InputError& error) {
      return error.what();
    }
    return "";
  }

  TempFolder folder_;
};

TEST_F(PictureCheck, GivesTheirSizeKindAndTheFirstPair) {
  cv::imwrite(folder_.file("l.png"), cv::Mat(3, 5, CV_16UC1, cv::Scalar(700)));
  const std::string left = folder_.file("l.png");
  const std::string right = picture("r.png", 5, 3, CV_16UC1);
  std::vector<std::pair<std::size_t, std::size_t>> told;
  const auto checked = init::checkPictures({{left, right}, {right, left}},
                                           [&](std::size_t done, std::size_t all) { told.emplace_back(done, all); });
  EXPECT_EQ(checked.size, cv::Size(5, 3));
  EXPECT_EQ(checked.type, CV_16UC1);
  EXPECT_EQ(checked.first.first.at<std::uint16_t>(0, 0), 700);
  EXPECT_EQ(checked.first.second.at<std::uint16_t>(0, 0), 40);
  EXPECT_THAT(told, ElementsAre(Pair(1, 4), Pair(2, 4), Pair(3, 4), Pair(4, 4)));
}

TEST_F(PictureCheck, NamesEachOneThatDoesNotDecode) {
  const std::string good = picture("good.png", 4, 4, CV_8UC1);
  EXPECT_THAT(refusal({{good, folder_.write("bad1.png", "no picture")}, {folder_.write("bad2.png", ""), good}}),
              AllOf(HasSubstr("bad1.png can't be decoded, "), HasSubstr("bad2.png can't be decoded: it is empty"),
                    Not(HasSubstr("good.png"))));
}

TEST_F(PictureCheck, RefusesAJpegThatIsCutOff) {
  cv::Mat noise(40, 60, CV_8UC1);
  cv::randu(noise, 0, 255);
  cv::imwrite(folder_.file("whole.jpg"), noise);
  const std::string whole = folder_.file("whole.jpg");
  const std::string half = folder_.write("half.jpg", folder_.read("whole.jpg").substr(0, 900));
  EXPECT_EQ(refusal({{whole, whole}}), "");
  EXPECT_THAT(refusal({{whole, half}}), HasSubstr("half.jpg is cut off"));
}

TEST_F(PictureCheck, NamesThoseOfAnotherSizeAndWhichItIs) {
  const std::string usual = picture("usual.png", 8, 6, CV_8UC1);
  EXPECT_THAT(refusal({{usual, usual}, {usual, picture("small.png", 4, 3, CV_8UC1)}}),
              AllOf(HasSubstr("most are 8x6, 1 channel of 8 bits"), HasSubstr("small.png (4x3, 1 channel of 8 bits)"),
                    Not(HasSubstr("usual.png"))));
}

TEST_F(PictureCheck, NamesThoseOfAnotherKind) {
  const std::string usual = picture("usual.png", 8, 6, CV_8UC1);
  EXPECT_THAT(refusal({{usual, usual}, {usual, picture("colour.png", 8, 6, CV_8UC3)}}),
              HasSubstr("colour.png (8x6, 3 channels of 8 bits)"));
}

TEST_F(PictureCheck, RefusesAKindThatNoRunTakes) {
  const std::string colour = picture("c.png", 8, 6, CV_16UC3);
  EXPECT_THAT(refusal({{colour, colour}}), HasSubstr("is 8x6, 3 channels of 16 bits; wanted 8 or 16 bits of one"));
}

TEST_F(PictureCheck, ALongListIsCut) {
  std::vector<init::PicturePair> pairs;
  for (int k = 0; k < 15; ++k)
    pairs.emplace_back(folder_.write("l" + std::to_string(k), "x"), folder_.write("r" + std::to_string(k), "x"));
  EXPECT_THAT(refusal(pairs), HasSubstr(" and 10 more"));
}

}  // namespace
