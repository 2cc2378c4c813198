#include "Tallowfen/src/zernike/SubPixelCircleDetector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <opencv2/imgproc.hpp>
#include <optional>

#include "BoxOutline.h"
#include "StepImage.h"
#include "Tallowfen/src/zernike/CircleFit.h"
#include "Tallowfen/src/zernike/ZernikeEdgeRefine.h"
#include "support/ConsoleCapture.h"

namespace {

using kestrune::canBeDot;
using kestrune::Ellipse;
using kestrune::SubPixelCircleDetector;

constexpr double kFirst = 40.3, kPitch = 52.4;

cv::Mat discs(double radius, std::uint8_t disc, std::uint8_t ground) {
  return renderDiscs(240, 4, kFirst, kPitch, radius, disc, ground);
}

std::vector<Ellipse> detect(const cv::Mat& image) {
  const ConsoleCapture console;
  std::vector<Ellipse> ellipses(3);
  SubPixelCircleDetector(image, ellipses);
  return ellipses;
}

void expectAllDiscs(const std::vector<Ellipse>& ellipses, double radius) {
  for (int i = 0; i < 16; ++i) {
    const double x = kFirst + kPitch * (i % 4), y = kFirst + kPitch * (i / 4);
    const auto near = [&](const Ellipse& e) { return std::hypot(e.x - x, e.y - y) < 0.05; };
    EXPECT_EQ(std::ranges::count_if(ellipses, near), 1) << x << ", " << y;
  }
  for (const Ellipse& ellipse : ellipses) EXPECT_NEAR(ellipse.semi_a, radius, 0.5);
}

TEST(SubPixelCircleDetector, DarkDotsOnBright) {
  const std::vector<Ellipse> ellipses = detect(discs(12, 25, 215));
  EXPECT_EQ(ellipses.size(), 16U);
  expectAllDiscs(ellipses, 12);
  for (const Ellipse& ellipse : ellipses) {
    EXPECT_EQ(ellipse.sigma, 0);
    EXPECT_EQ(ellipse.id, -1);
    EXPECT_EQ(ellipse.point_class, kestrune::morvenkit::kRejected);
    EXPECT_GT(ellipse.roundness, 0.95);
    EXPECT_GE(ellipse.edge_points.size(), 30U);
  }
}

// A speck of 2 x 2 pixels has no outline of 30 points, a bar no roundness.
TEST(SubPixelCircleDetector, TellsWhatBecameOfTheContours) {
  cv::Mat image = discs(12, 25, 215);
  image(cv::Rect(10, 10, 2, 2)) = 25;
  image(cv::Rect(64, 60, 4, 110)) = 25;
  const ConsoleCapture console;
  std::vector<Ellipse> ellipses;
  const kestrune::CircleSearch search = SubPixelCircleDetector(image, ellipses);
  EXPECT_EQ(search.contours.accepted, 16U);
  EXPECT_EQ(search.contours.too_short, 1U);
  EXPECT_EQ(search.contours.not_round, 1U);
  EXPECT_EQ(search.contours.not_fitted, 0U);
  EXPECT_EQ(search.contours.traced, 18U);
  EXPECT_EQ(search.binary.size(), image.size());
  EXPECT_EQ(search.binary.at<std::uint8_t>(40, 40), 255) << "dots are white";
  EXPECT_EQ(search.binary.at<std::uint8_t>(3, 3), 0);
}

TEST(SubPixelCircleDetector, BrightDotsOnDark) {
  const std::vector<Ellipse> ellipses = detect(discs(12, 215, 25));
  EXPECT_EQ(ellipses.size(), 16U);
  expectAllDiscs(ellipses, 12);
}

/// Soft and noisy discs on an uneven ground, the first ones four pixels from the edge, and a ring with a core: each
/// number of the chain moves outlines here.
cv::Mat texturedDiscs(std::uint8_t disc, std::uint8_t ground) {
  cv::Mat image = renderDiscs(240, 4, 16.2, 54.3, 11.8, disc, ground), noise(image.size(), CV_8SC1);
  cv::circle(image, {216, 42}, 20, disc, cv::FILLED);
  cv::circle(image, {216, 42}, 13, ground, cv::FILLED);
  cv::circle(image, {216, 42}, 7, disc, cv::FILLED);
  cv::GaussianBlur(image, image, {0, 0}, 1.2);
  for (int x = 0; x < image.cols; ++x) image.col(x) += x / 12;
  cv::RNG(4).fill(noise, cv::RNG::NORMAL, 0, 4);
  cv::add(image, noise, image, cv::noArray(), CV_8U);
  return image;
}

using Outline = std::vector<cv::Point>;

bool isRoundTopLevel(const Outline& outline, const cv::Vec4i& relatives) {
  const double perimeter = cv::arcLength(outline, true);
  const double circularity = 4 * CV_PI * cv::contourArea(outline) / (perimeter * perimeter);
  return relatives[3] == -1 && outline.size() >= 30 && outline.size() <= 500 && circularity >= 0.3 &&
         circularity <= 1.25;
}

/// The detection, step by step, where the threshold that suits the picture is known.
std::vector<Ellipse> stepByStep(const cv::Mat& image, cv::ThresholdTypes type) {
  cv::Mat grey = image, smooth, bin;
  if (image.channels() == 3) cv::cvtColor(image, grey, cv::COLOR_BGR2GRAY);
  cv::GaussianBlur(grey, smooth, {7, 7}, 0.65, 0.65, cv::BORDER_REFLECT_101);
  cv::adaptiveThreshold(smooth, bin, 255, cv::ADAPTIVE_THRESH_MEAN_C, type, 37, 2.5);
  std::vector<Outline> outlines, kept;
  std::vector<cv::Vec4i> hierarchy;
  cv::findContours(bin, outlines, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
  for (std::size_t i = 0; i < outlines.size(); ++i) {
    if (isRoundTopLevel(outlines[i], hierarchy[i])) kept.push_back(outlines[i]);
  }
  std::vector<Ellipse> ellipses;
  for (const auto& edge : kestrune::ZernikeEdgeRefine(smooth, kept, 7)) {
    const std::vector<cv::Point2f> points(edge.begin(), edge.end());
    const auto ellipse = kestrune::dotOfFit(cv::fitEllipseDirect(points), points);
    if (ellipse) ellipses.push_back(*ellipse);
  }
  return ellipses;
}

void expectSame(const std::vector<Ellipse>& found, const std::vector<Ellipse>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    const auto figures = [](const Ellipse& e) {
      return std::array{e.x, e.y, e.semi_a, e.semi_b, e.angle, e.roundness};
    };
    EXPECT_EQ(figures(found[i]), figures(expected[i])) << i;
    EXPECT_EQ(found[i].edge_points, expected[i].edge_points) << i;
  }
}

bool anyNear(const std::vector<Ellipse>& ellipses, double x, double y) {
  return std::ranges::any_of(ellipses, [=](const Ellipse& e) { return std::hypot(e.x - x, e.y - y) < 1; });
}

TEST(SubPixelCircleDetector, ChainOfSteps) {
  for (const bool bright : {true, false}) {
    const cv::Mat image = bright ? texturedDiscs(150, 90) : texturedDiscs(90, 150);
    const std::vector<Ellipse> ellipses = detect(image);
    EXPECT_EQ(ellipses.size(), 17U);
    EXPECT_TRUE(anyNear(ellipses, 16.2, 16.2)) << "four pixels from two edges";
    EXPECT_TRUE(anyNear(ellipses, 216, 42)) << "a core within a ring has no parent";
    expectSame(ellipses, stepByStep(image, bright ? cv::THRESH_BINARY : cv::THRESH_BINARY_INV));
  }
}

TEST(SubPixelCircleDetector, ColoursAreBlueGreenRed) {
  cv::Mat image;
  cv::merge(std::vector{texturedDiscs(90, 150), texturedDiscs(60, 170), texturedDiscs(130, 140)}, image);
  const std::vector<Ellipse> ellipses = detect(image);
  EXPECT_EQ(ellipses.size(), 17U);
  expectSame(ellipses, stepByStep(image, cv::THRESH_BINARY_INV));
}

TEST(SubPixelCircleDetector, CallersPictureIsNotSmoothed) {
  const cv::Mat image = discs(12, 25, 215), kept = image.clone();
  detect(image);
  EXPECT_EQ(cv::countNonZero(image != kept), 0);
}

TEST(SubPixelCircleDetector, ColoursAreMadeGrey) {
  const cv::Mat grey = discs(12, 25, 215);
  cv::Mat colour;
  cv::cvtColor(grey, colour, cv::COLOR_GRAY2BGR);
  const std::vector<Ellipse> fromGrey = detect(grey), fromColour = detect(colour);
  ASSERT_EQ(fromColour.size(), fromGrey.size());
  for (std::size_t i = 0; i < fromGrey.size(); ++i) EXPECT_EQ(fromColour[i].x, fromGrey[i].x);
}

// A view into a larger picture has rows longer than the image is wide; its smoothed copy has not.
TEST(SubPixelCircleDetector, ViewIntoALargerPicture) {
  cv::Mat larger(300, 400, CV_8UC1, cv::Scalar(215));
  discs(12, 25, 215).copyTo(larger(cv::Rect(50, 30, 240, 240)));
  const std::vector<Ellipse> ellipses = detect(larger(cv::Rect(50, 30, 240, 240)));
  EXPECT_EQ(ellipses.size(), 16U);
  expectAllDiscs(ellipses, 12);
}

// Outlines of fewer than 30 pixels are no dots: a radius of 4 px makes 24, one of 6.5 px 36.
TEST(SubPixelCircleDetector, SmallDotsAreLeftOut) {
  EXPECT_TRUE(detect(discs(4, 25, 215)).empty());
  EXPECT_EQ(detect(discs(6.5, 25, 215)).size(), 16U);
}

TEST(SubPixelCircleDetectorCanBeDot, FromThirtyToFiveHundredPoints) {
  const cv::Vec4i top = cv::Vec4i::all(-1);
  const auto thirty = boxOutline(8, 7), most = boxOutline(125, 125);
  EXPECT_FALSE(canBeDot(onePointLess(thirty), top));
  EXPECT_TRUE(canBeDot(thirty, top));
  EXPECT_TRUE(canBeDot(most, top));
  EXPECT_FALSE(canBeDot(onePointMore(most), top));
}

// Boxes of 80 x 10 and 80 x 9 have circularities of 0.310 and 0.286.
TEST(SubPixelCircleDetectorCanBeDot, MustBeRoundEnough) {
  const cv::Vec4i top = cv::Vec4i::all(-1);
  EXPECT_TRUE(canBeDot(boxOutline(80, 10), top));
  EXPECT_FALSE(canBeDot(boxOutline(80, 9), top));
}

TEST(SubPixelCircleDetectorCanBeDot, OnlyWithoutAParent) {
  EXPECT_TRUE(canBeDot(boxOutline(15, 15), {3, 4, 5, -1}));
  EXPECT_FALSE(canBeDot(boxOutline(15, 15), {-1, -1, -1, 0}));
}

TEST(SubPixelCircleDetector, EmptyPictureHasNoDots) {
  EXPECT_TRUE(detect(cv::Mat(100, 100, CV_8UC1, cv::Scalar(128))).empty());
}

TEST(SubPixelCircleDetector, SixteenBitPictureEndsInAnException) {
  std::vector<Ellipse> ellipses;
  EXPECT_THROW(SubPixelCircleDetector(cv::Mat(100, 100, CV_16UC1, cv::Scalar(9)), ellipses), cv::Exception);
}

}  // namespace
