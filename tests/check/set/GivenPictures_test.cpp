#include "check/set/GivenPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "check/set/Fingerprint.h"
#include "check/set/PictureSource.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

cv::Mat grey(int value) { return {4, 6, CV_8UC1, cv::Scalar(value)}; }

std::string problemOf(const Pictures& pictures) {
  try {
    listedPairs(pictures);
  } catch (const InputError& error) {
    return error.what();
  }
  return "none";
}

TEST(GivenPicturesList, NamesEachByItsPlace) {
  const auto pairs = listedPairs(Pictures{{grey(1), grey(2)}, {grey(3), grey(4)}});
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_EQ(pairs[1].left, "left[1]");
  EXPECT_EQ(pairs[1].right, "right[1]");
}

TEST(GivenPicturesList, RefusesWhatNoRunTakes) {
  EXPECT_THAT(problemOf({}), HasSubstr("one pair at least"));
  EXPECT_THAT(problemOf({{grey(1)}, {}}), HasSubstr("1 left and 0 right"));
  EXPECT_EQ(problemOf({{grey(1), grey(1)}, {grey(1), cv::Mat()}}), "right[1]: is empty; a picture was wanted");
  EXPECT_EQ(problemOf({{cv::Mat(2, 2, CV_32FC1)}, {grey(1)}}),
            "left[0]: has 1 channels of CV_32F; 1, 3 or 4 of CV_8U or CV_16U were wanted");
  EXPECT_THAT(problemOf({{cv::Mat(2, 2, CV_8UC2)}, {grey(1)}}), HasSubstr("2 channels"));
  for (const int type : {CV_8UC1, CV_16UC1, CV_8UC3, CV_8UC4, CV_16UC3}) {
    EXPECT_EQ(problemOf({{cv::Mat(2, 2, type)}, {grey(1)}}), "none") << type;
  }
}

TEST(GivenPicturesSource, HandsThePixelsOnAsTheyAre) {
  const Pictures given{{grey(1), grey(2), grey(3)}, {grey(4), grey(5), grey(6)}};
  const auto all = listedPairs(given);
  ListedPictures source({all.begin() + 1, all.end()}, 1, &given);
  const auto [left, right] = source.take(0);
  EXPECT_EQ(left.data, given.left[1].data);
  EXPECT_EQ(right.data, given.right[1].data);
  EXPECT_EQ(source.take(1).first.data, given.left[2].data);
  const auto inputs = source.inputs();
  ASSERT_EQ(inputs.size(), 4U);
  EXPECT_EQ(inputs[3].role, "right/2");
  EXPECT_EQ(inputs[3].path, "");
  EXPECT_EQ(inputs[3].sha256, sha256OfPicture(given.right[2]));
}

TEST(GivenPicturesHash, IsOfSizeTypeAndPixelsNotOfTheGapsBetweenRows) {
  cv::Mat wide(4, 9, CV_8UC1, cv::Scalar(7));
  cv::Mat part = wide.colRange(0, 6);
  part.setTo(1);
  EXPECT_EQ(sha256OfPicture(part), sha256OfPicture(grey(1)));
  EXPECT_EQ(sha256OfPicture(part), sha256("4 6 0\n" + std::string(24, '\1')));
  EXPECT_NE(sha256OfPicture(part), sha256OfPicture(grey(1).reshape(0, 6)));
  EXPECT_NE(sha256OfPicture(part), sha256OfPicture(grey(2)));
}

}  // namespace
}  // namespace polarline
