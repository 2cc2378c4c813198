// Whole detections of rendered boards: what is told of a found one, and of one that stops at each step.
#include "polarline/detect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

#include "BoardPicture.h"
#include "polarline/errors.h"
#include "tests/support/ConsoleCapture.h"

namespace {

using polarline::detect;
using polarline::Detection;
using scene::BoardKind;
using testing::HasSubstr;

struct FoundCase {
  const char* name;
  BoardKind kind;
  int width, height;
  double worst;  ///< Pixels.
  cv::Size searched;
  std::size_t dots, rings, solid_rings, big_dots;
};

class DetectFound : public testing::TestWithParam<FoundCase> {};

TEST_P(DetectFound, TellsEveryDotAtItsPlaceAndTheClassesByCount) {
  const FoundCase& given = GetParam();
  const BoardPicture picture(given.kind, given.width, given.height);
  const Detection detection = detect(picture.image(), picture.target());
  EXPECT_TRUE(detection.found);
  EXPECT_EQ(detection.step, "done");
  EXPECT_EQ(detection.text, "483 numbered of 483 dots");
  EXPECT_EQ(detection.advice, "");
  EXPECT_TRUE(detection.warnings.empty());
  ASSERT_EQ(detection.dots.size(), BoardPicture::kAll);
  EXPECT_TRUE(detection.missing.empty());
  for (std::size_t i = 0; i < detection.dots.size(); ++i) {
    const polarline::Dot& dot = detection.dots[i];
    EXPECT_EQ(dot.id, static_cast<int>(i));
    EXPECT_EQ(BoardPicture::idAt(dot.column, dot.row), dot.id);
    const cv::Point2d truth = picture.centreOf(dot.id);
    EXPECT_LT(std::hypot(dot.x - truth.x, dot.y - truth.y), given.worst) << dot.id;
  }
  // Of a slanted board some near dots count as big by area.
  EXPECT_EQ(detection.classes.dots + detection.classes.big_dots, given.dots + given.big_dots);
  EXPECT_EQ(detection.classes.rings, given.rings);
  EXPECT_EQ(detection.classes.solid_rings, given.solid_rings);
  EXPECT_EQ(detection.ellipses.size(), detection.contours.accepted);
  EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(detection.ellipses, true, &polarline::SeenEllipse::marker)),
            given.rings + given.solid_rings + given.big_dots);
  EXPECT_EQ(detection.size, picture.image().size());
  EXPECT_EQ(detection.working_size, given.searched);
  EXPECT_EQ(detection.binary.size(), given.searched);
  EXPECT_NEAR(detection.dot_radius, picture.radiusOf(BoardPicture::kAll / 2 + 3), 1.0);
}

INSTANTIATE_TEST_SUITE_P(
    Boards, DetectFound,
    testing::Values(FoundCase{"Rings640", BoardKind::kSmallRings, 640, 512, 0.15, {1280, 1024}, 478, 4, 1, 0},
                    FoundCase{"BigDots320", BoardKind::kBigDots, 320, 256, 0.1, {1280, 1024}, 479, 0, 0, 4},
                    FoundCase{"BigDots800", BoardKind::kBigDots, 800, 640, 0.1, {800, 640}, 479, 0, 0, 4},
                    FoundCase{"Rings2048", BoardKind::kSmallRings, 2048, 1100, 0.3, {1024, 550}, 478, 4, 1, 0}),
    [](const auto& tested) { return tested.param.name; });

// What the rings cover can't be numbered: 4 rings and 16 dots beside them.
TEST(DetectCovered, DotsUnderBigRingsAreMissingAndExplained) {
  const BoardPicture picture(BoardKind::kBigRings, 640, 512);
  const Detection detection = detect(picture.image(), picture.target());
  EXPECT_EQ(detection.dots.size() + detection.missing.size(), BoardPicture::kAll);
  EXPECT_EQ(detection.missing.size(), 20U);
  EXPECT_THAT(detection.text, HasSubstr("463 numbered of 483 dots; big rings cover the dots beside them"));
}

TEST(DetectMissing, AnErasedDotIsMissing) {
  BoardPicture picture(BoardKind::kBigDots, 640, 512);
  picture.erase(100);
  const Detection detection = detect(picture.image(), picture.target());
  EXPECT_EQ(detection.text, "482 numbered of 483 dots");
  EXPECT_EQ(detection.missing, std::vector<int>{100});
}

struct StoppedCase {
  const char* name;
  const char* step;
  BoardKind kind;
  int width, height;
  std::function<void(BoardPicture&)> spoil;
  std::string lines;               ///< Of the target, behind the board's own.
  std::vector<std::string> words;  ///< Of the outcome.
  std::string advice;              ///< A part of it.
};

void leaveAll(BoardPicture& /*picture*/) {}

class DetectStopped : public testing::TestWithParam<StoppedCase> {};

TEST_P(DetectStopped, TellsTheStepInWordsWithNumbers) {
  const StoppedCase& given = GetParam();
  BoardPicture picture(given.kind, given.width, given.height);
  given.spoil(picture);
  const Detection detection = detect(picture.image(), picture.target(given.lines));
  EXPECT_FALSE(detection.found);
  EXPECT_EQ(detection.step, given.step);
  for (const std::string& words : given.words) EXPECT_THAT(detection.text, HasSubstr(words));
  EXPECT_THAT(detection.advice, HasSubstr(given.advice));
  EXPECT_TRUE(detection.dots.empty());
  EXPECT_EQ(detection.missing.size(), BoardPicture::kAll);
  const auto stopped = std::ranges::find(detection.stages, "stopped", &polarline::DetectionStage::state);
  ASSERT_NE(stopped, detection.stages.end());
  EXPECT_EQ(stopped->name, given.step);
}

// The rings of a 9 x 7 rectangle about (11, 10) and its solid ring.
void hideTwoRings(BoardPicture& picture) {
  picture.makeDot(BoardPicture::idAt(7, 7));
  picture.makeDot(BoardPicture::idAt(15, 13));
}

void moveSolidRing(BoardPicture& picture) {
  picture.makeDot(BoardPicture::idAt(7, 9));
  const int middle = BoardPicture::idAt(11, 10);
  picture.paint(middle, 0.5 / 0.3, BoardPicture::kInk);
  picture.paint(middle, 0.33 / 0.3, BoardPicture::kPaper);
  picture.paint(middle, 0.16 / 0.3, BoardPicture::kInk);
}

void eraseBesideEachMarker(BoardPicture& picture) {
  for (const auto& [column, row] : {std::pair(8, 7), {16, 7}, {16, 13}, {8, 13}, {8, 9}})
    picture.erase(BoardPicture::idAt(column, row));
}

// The big dots of a 5 x 5 rectangle.
void hideABigDot(BoardPicture& picture) { picture.makeDot(BoardPicture::idAt(13, 8)); }

INSTANTIATE_TEST_SUITE_P(
    Steps, DetectStopped,
    testing::Values(StoppedCase{"Contours",
                                "contours",
                                BoardKind::kBigDots,
                                320,
                                256,
                                leaveAll,
                                "bin_method: 3\n",
                                {"no two-valued picture", "bin_method 3 is none of 0, 1 and 2"},
                                "bin_method"},
                    StoppedCase{"Ellipses",
                                "ellipses",
                                BoardKind::kBigDots,
                                320,
                                256,
                                leaveAll,
                                "min_radius: 1000\n",
                                {"none became an ellipse", "too short", "dots with a radius of"},
                                "min_radius"},
                    StoppedCase{"TwoRings",
                                "markers",
                                BoardKind::kSmallRings,
                                640,
                                512,
                                hideTwoRings,
                                "",
                                {"the markers were not recognised: 4 rings are needed, 2 were found"},
                                "all five markers"},
                    StoppedCase{"RingsOfTheMiddleRow",
                                "markers",
                                BoardKind::kSmallRings,
                                800,
                                640,
                                leaveAll,
                                "",
                                {"641 to 2047 columns", "this one has 800"},
                                "board_type 3"},
                    StoppedCase{"Arrangement",
                                "arrangement",
                                BoardKind::kSmallRings,
                                640,
                                512,
                                moveSolidRing,
                                "",
                                {"don't stand as the board's", "solid ring must stand on the line"},
                                "another mark"},
                    StoppedCase{"Seed",
                                "seed",
                                BoardKind::kSmallRings,
                                640,
                                512,
                                eraseBesideEachMarker,
                                "",
                                {"9 dots of a 3 x 3 block around a marker are needed, in the fullest 8 were found"},
                                "covered"},
                    StoppedCase{"NoNumbering",
                                "seed",
                                BoardKind::kBigDots,
                                320,
                                256,
                                leaveAll,
                                "id_method: 2\n",
                                {"id_method 2 is none of 0 and 1"},
                                "id_method"},
                    StoppedCase{"Filter",
                                "filter",
                                BoardKind::kBigDots,
                                320,
                                256,
                                leaveAll,
                                "detection_switch: 1\ndetection_id: [900,901,902,903]\n",
                                {"all of 483 dots that were numbered are filtered out"},
                                "detection_id"}),
    [](const auto& tested) { return tested.param.name; });

// Dots near the camera pass for big ones by area, which are told apart by their size among themselves.
TEST(DetectMarkers, OfThreeBigDotsAreNotFourOfOneSize) {
  BoardPicture picture(BoardKind::kBigDots, 640, 512);
  hideABigDot(picture);
  const Detection detection = detect(picture.image(), picture.target());
  EXPECT_EQ(detection.step, "markers");
  EXPECT_THAT(detection.text, HasSubstr("4 big dots of one size are needed"));
  EXPECT_THAT(detection.advice, HasSubstr("large dark marks"));
}

TEST(DetectMarkers, OfAHandfulOfDiscsOnTheMiddleRowAreNoQuad) {
  cv::Mat image(640, 800, CV_8UC1, cv::Scalar(200));
  for (const int x : {200, 300, 400}) cv::circle(image, {x, 300}, 12, cv::Scalar(40), cv::FILLED, cv::LINE_AA);
  const Detection detection = detect(image, BoardPicture(BoardKind::kBigDots, 320, 256).target());
  EXPECT_EQ(detection.step, "markers");
  EXPECT_THAT(detection.text,
              HasSubstr("4 big dots are needed, 0 were found: no four of the ten largest of 3 ellipses"));
  EXPECT_EQ(detection.classes.rejected, 3U);
  for (const auto& ellipse : detection.ellipses) {
    EXPECT_EQ(ellipse.kind, "rejected");
    EXPECT_NEAR(ellipse.y, 300, 0.2);
    EXPECT_NEAR(ellipse.a, 12, 1.0);
  }
}

// Big dots on the corners of a rectangle: the board looks the same turned by a half, and the ids run off it.
TEST(DetectIds, BeyondTheBoardAreWarnedOf) {
  BoardPicture picture(BoardKind::kBigDots, 640, 512);
  picture.makeDot(BoardPicture::idAt(10, 8));
  picture.paint(BoardPicture::idAt(9, 8), 0.45 / 0.3, BoardPicture::kInk);
  const Detection detection = detect(picture.image(), picture.target());
  EXPECT_EQ(detection.dots.size(), BoardPicture::kAll);
  ASSERT_EQ(detection.warnings.size(), 1U);
  EXPECT_EQ(detection.warnings[0].code, "strange_ids");
  EXPECT_EQ(detection.missing.size(), 42U);
  EXPECT_EQ(detection.text, "441 numbered of 483 dots");
}

TEST(DetectSearch, WithTooFewInTheGridTellsHowMany) {
  const BoardPicture picture(BoardKind::kBigDots, 640, 512);
  std::string target = picture.target("id_method: 1\n");
  for (const auto& [from, to] : {std::pair<std::string, std::string>{"rows: 21", "rows: 9"}, {"cols: 23", "cols: 9"}}) {
    const std::size_t place = target.find(from);
    ASSERT_NE(place, std::string::npos) << target;
    target.replace(place, from.size(), to);
  }
  const Detection detection = detect(picture.image(), target);
  EXPECT_EQ(detection.step, "search");
  EXPECT_THAT(detection.text, HasSubstr("more than half of 483 ellipses must stand in the board's grid, 80 do"));
}

// A board that fills a little of 640 columns: its dots have less than the 2.7 pixels that big dot boards need.
TEST(DetectDotSize, OfDotsTooSmallForTheScaleIsWarnedWithNumbers) {
  const BoardPicture picture(BoardKind::kBigDots, 640, 512, 0.4);
  const double radius = picture.radiusOf(BoardPicture::kAll / 2 + 3);
  ASSERT_LT(radius, 2.65);
  const Detection detection = detect(picture.image(), picture.target());
  ASSERT_FALSE(detection.warnings.empty()) << detection.text;
  EXPECT_EQ(detection.warnings[0].code, "dots_too_small");
  EXPECT_THAT(detection.warnings[0].text,
              HasSubstr("in a picture of 640 columns, searched at 1280 x 1024, dots of 2.7 to"));
  EXPECT_NEAR(detection.dot_radius, radius, 0.6);
}

TEST(DetectImage, ThatCantBeSearchedIsToldWithItsSizeAndType) {
  const std::string target = BoardPicture(BoardKind::kBigDots, 320, 256).target();
  const auto textOf = [&target](const cv::Mat& image) {
    const Detection detection = detect(image, target);
    EXPECT_FALSE(detection.found);
    EXPECT_EQ(detection.step, "image");
    EXPECT_TRUE(detection.ellipses.empty());
    EXPECT_NE(detection.advice, "");
    return detection.text;
  };
  EXPECT_EQ(textOf({}), "the picture is empty");
  EXPECT_EQ(textOf(cv::Mat(20, 20, CV_8UC1, cv::Scalar(9))),
            "the picture of 20 x 20 pixels can't be searched: image is 80 x 80 pixels, the least is 100 x 100");
  EXPECT_THAT(textOf(cv::Mat(200, 300, CV_32FC1, cv::Scalar(9))),
              HasSubstr("300 x 200 pixels has pixels of 32-bit floating point grey; 8-bit"));
  EXPECT_THAT(textOf(cv::Mat(200, 300, CV_16UC3, cv::Scalar(9))), HasSubstr("16-bit, 3 channels"));
}

TEST(DetectImage, OfOneGreyHasNoOutlinesOrNoEllipse) {
  const std::string target = BoardPicture(BoardKind::kBigDots, 320, 256).target();
  EXPECT_EQ(detect(cv::Mat(640, 800, CV_8UC1, cv::Scalar(90)), target).step, "contours");
  EXPECT_EQ(detect(cv::Mat(256, 320, CV_8UC1, cv::Scalar(90)), target).step, "ellipses");
}

// 16 bits and colour are brought to 8 bits and grey as a run does it.
TEST(DetectImage, OfSixteenBitsOrColoursIsFoundAsWell) {
  const BoardPicture picture(BoardKind::kBigDots, 640, 512);
  cv::Mat deep, colour, clear;
  picture.image().convertTo(deep, CV_16U, 16.0);
  cv::cvtColor(picture.image(), colour, cv::COLOR_GRAY2BGR);
  cv::cvtColor(picture.image(), clear, cv::COLOR_GRAY2BGRA);
  for (const cv::Mat& image : {deep, colour, clear}) {
    const Detection detection = detect(image, picture.target());
    EXPECT_EQ(detection.dots.size(), BoardPicture::kAll);
  }
}

TEST(DetectConsole, StaysSilent) {
  const ConsoleCapture console;
  const BoardPicture picture(BoardKind::kBigDots, 320, 256);
  detect(picture.image(), picture.target());
  detect(cv::Mat(200, 300, CV_32FC1, cv::Scalar(9)), picture.target());
  EXPECT_EQ(console.out(), "");
  EXPECT_EQ(console.err(), "");
}

}  // namespace
