#include "check/init/FirstPair.h"

#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>

#include "support/ConsoleCapture.h"
#include "support/MemoryRun.h"

namespace {

cv::Mat leftPicture() { return cv::imread(MemoryRun::twoPairs().file("left_0.png"), cv::IMREAD_UNCHANGED); }

std::string target() { return MemoryRun::twoPairs().text("target.ini"); }

TEST(FirstPair, FindsTheDotsWhereTheyAre) {
  const ConsoleCapture console;
  const init::SeenBoard seen = init::seenBoard(leftPicture(), target(), 63);
  const scene::PairTruth truth = scene::pairTruth(MemoryRun::twoPairs().scene(), 0);
  ASSERT_EQ(seen.dots.size(), 63U);
  for (const auto& [id, centre] : seen.dots) {
    const auto& outline = truth.dots.at(static_cast<std::size_t>(id)).ellipse_left;
    EXPECT_NEAR(centre.x, outline.centre.x, 0.5) << id;
    EXPECT_NEAR(centre.y, outline.centre.y, 0.5) << id;
  }
  EXPECT_EQ(console.out(), "") << "the detector's lines are nobody's here";
  EXPECT_EQ(console.err(), "");
}

TEST(FirstPair, MeasuresThePlainDots) {
  const init::SeenBoard seen = init::seenBoard(leftPicture(), target(), 63);
  // 9 dots of a pitch of 0.3 radius and 2 pitches of margin fill 0.92 of 128 pixels: some 9 pixels a pitch.
  EXPECT_GT(seen.dot_radius, 2.0);
  EXPECT_LT(seen.dot_radius, 4.0);
}

TEST(FirstPair, ABoardThatIsNotFoundIsMeasuredByItsSpots) {
  cv::Mat large(600, 800, CV_8UC1, cv::Scalar(60));
  const cv::Mat small = leftPicture();
  small.copyTo(large(cv::Rect({336, 249}, small.size())));
  const init::SeenBoard found = init::seenBoard(small, target(), 63);
  const init::SeenBoard seen = init::seenBoard(large, target(), 63);
  EXPECT_TRUE(seen.dots.empty());
  EXPECT_NEAR(seen.dot_radius, found.dot_radius, 1.0);
}

TEST(FirstPair, NothingIsKnownOfAnEmptyPicture) {
  const init::SeenBoard seen = init::seenBoard(cv::Mat(102, 128, CV_8UC1, cv::Scalar(90)), target(), 63);
  EXPECT_TRUE(seen.dots.empty());
  EXPECT_EQ(seen.dot_radius, 0.0);
}

}  // namespace
