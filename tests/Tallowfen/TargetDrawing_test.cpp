#include "Tallowfen/src/TargetDrawing.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

#include "HandMadeEllipses.h"

namespace {

using handmade::ellipse;
using handmade::List;
using kestrune::drawTarget;

const cv::Vec3b kRed(0, 0, 255);
const cv::Vec3b kCyan(255, 255, 0);
const cv::Vec3b kBlue(255, 0, 0);

kestrune::Ellipse numbered(double x, double y, double semi_a, double semi_b, std::int32_t id) {
  kestrune::Ellipse made = ellipse(x, y, semi_a);
  made.semi_b = semi_b;
  made.id = id;
  return made;
}

cv::Mat drawn(const cv::Mat& src, double scale, const List& identified, const List& unidentified) {
  cv::Mat dst;
  drawTarget(src, dst, scale, identified, unidentified);
  return dst;
}

int pixelsOf(const cv::Mat& image, const cv::Vec3b& colour) {
  cv::Mat hits;
  cv::inRange(image, colour, colour, hits);
  return cv::countNonZero(hits);
}

cv::Mat grey(int side = 100) { return {side, side, CV_8UC1, cv::Scalar(50)}; }

TEST(TargetDrawing, WithoutADetectionItIsTheScaledCopyAlone) {
  cv::Mat src(4, 6, CV_8UC1);
  cv::randu(src, 0, 256);
  cv::Mat colour, expected;
  cv::cvtColor(src, colour, cv::COLOR_GRAY2BGR);
  cv::resize(colour, expected, cv::Size(9, 6), 0, 0, cv::INTER_LINEAR);
  const cv::Mat dst = drawn(src, 1.5, {}, {});
  ASSERT_EQ(dst.type(), CV_8UC3);
  ASSERT_EQ(dst.size(), cv::Size(9, 6));
  EXPECT_EQ(cv::norm(dst, expected, cv::NORM_INF), 0.0);
}

TEST(TargetDrawing, AColourImageIsCopiedAndNotPaintedOn) {
  const cv::Mat src(100, 100, CV_8UC3, cv::Scalar(1, 2, 3));
  const cv::Mat dst = drawn(src, 1.0, {numbered(50, 50, 20, 10, 0)}, {});
  EXPECT_GT(pixelsOf(dst, kRed), 0);
  EXPECT_EQ(pixelsOf(src, cv::Vec3b(1, 2, 3)), 100 * 100);
}

struct TypeCase {
  const char* name;
  int type;
};

class TargetDrawingType : public testing::TestWithParam<TypeCase> {};

TEST_P(TargetDrawingType, RaisesTheAssertion) {
  cv::Mat dst;
  try {
    drawTarget(cv::Mat(10, 10, GetParam().type), dst, 1.0, {}, {});
    FAIL() << "no exception";
  } catch (const cv::Exception& exception) {
    EXPECT_EQ(exception.code, -215);
    EXPECT_EQ(exception.err, "src.type() == CV_8UC1 || src.type() == CV_8UC3");
    EXPECT_EQ(exception.func, "kestrune::RingTarget::draw");
  }
}

INSTANTIATE_TEST_SUITE_P(Table, TargetDrawingType,
                         testing::Values(TypeCase{"SixteenBitThreeChannels", CV_16UC3},
                                         TypeCase{"SixteenBit", CV_16UC1}, TypeCase{"FourChannels", CV_8UC4}),
                         [](const auto& tested) { return tested.param.name; });

TEST(TargetDrawing, NumberedEllipseIsARedOutlineOfItsSemiAxes) {
  // Scale 2: centre ((49.5 + 0.5) * 2 + 0.5) = 100.5, semi-axes 40 and 20.
  const cv::Mat dst = drawn(grey(), 2.0, {numbered(49.5, 49.5, 20, 10, 0)}, {});
  EXPECT_EQ(dst.at<cv::Vec3b>(100, 140), kRed);
  EXPECT_EQ(dst.at<cv::Vec3b>(100, 61), kRed);
  EXPECT_EQ(dst.at<cv::Vec3b>(120, 100), kRed);
  EXPECT_EQ(dst.at<cv::Vec3b>(100, 150), cv::Vec3b(50, 50, 50));
  EXPECT_EQ(dst.at<cv::Vec3b>(135, 100), cv::Vec3b(50, 50, 50));
}

TEST(TargetDrawing, TheAngleTurnsTheOutline) {
  kestrune::Ellipse upright = numbered(49.5, 49.5, 20, 10, 0);
  upright.angle = CV_PI / 2.0;
  const cv::Mat dst = drawn(grey(), 2.0, {upright}, {});
  EXPECT_EQ(dst.at<cv::Vec3b>(140, 100), kRed);
  EXPECT_EQ(dst.at<cv::Vec3b>(100, 120), kRed);
}

TEST(TargetDrawing, TheIdIsWrittenInBlueFromTheCentre) {
  // A width of 160 gives font scale 2.4 and thickness 4.
  const cv::Mat dst = drawn(grey(400), 1.0, {numbered(199, 199, 80, 80, 1234)}, {});
  cv::Mat expected(400, 400, CV_8UC3, cv::Scalar::all(50));
  cv::putText(expected, "1234", {195, 200}, cv::FONT_HERSHEY_SIMPLEX, 160 * 0.015, cv::Scalar(255, 0, 0), 4);
  cv::Mat blue_expected, blue;
  cv::inRange(expected, kBlue, kBlue, blue_expected);
  cv::inRange(dst, kBlue, kBlue, blue);
  EXPECT_GT(cv::countNonZero(blue), 100);
  EXPECT_EQ(cv::norm(blue, blue_expected, cv::NORM_INF), 0.0);
}

TEST(TargetDrawing, OnlyTheLowSixteenBitsAreWritten) {
  const cv::Mat low = drawn(grey(400), 1.0, {numbered(199, 199, 80, 80, 77)}, {});
  const cv::Mat layered = drawn(grey(400), 1.0, {numbered(199, 199, 80, 80, 0x60000 | 77)}, {});
  EXPECT_EQ(cv::norm(low, layered, cv::NORM_INF), 0.0);
}

TEST(TargetDrawing, LayerSixIsDrawnAndLayerSevenLeftOut) {
  EXPECT_GT(pixelsOf(drawn(grey(), 1.0, {numbered(50, 50, 20, 10, 6 << 16)}, {}), kRed), 0);
  EXPECT_EQ(pixelsOf(drawn(grey(), 1.0, {numbered(50, 50, 20, 10, 7 << 16)}, {}), kRed), 0);
  EXPECT_EQ(pixelsOf(drawn(grey(), 1.0, {numbered(50, 50, 20, 10, -1)}, {}), kRed), 0);
}

TEST(TargetDrawing, AnUnnumberedEllipseIsCyanWithADot) {
  const cv::Mat dst = drawn(grey(), 2.0, {}, {numbered(49.5, 49.5, 20, 10, -1)});
  EXPECT_EQ(dst.at<cv::Vec3b>(100, 140), kCyan);
  // The centre 100.5 rounds to 100, the even one.
  EXPECT_EQ(dst.at<cv::Vec3b>(100, 100), kCyan);
  EXPECT_EQ(dst.at<cv::Vec3b>(98, 100), kCyan);
  EXPECT_EQ(dst.at<cv::Vec3b>(102, 100), kCyan);
  EXPECT_NE(dst.at<cv::Vec3b>(103, 100), kCyan);
  EXPECT_EQ(pixelsOf(dst, kRed), 0);
}

/// The box of an ellipse of semi-axes a and b around (x, y), those of the picture before it is scaled.
cv::RotatedRect boxOf(const kestrune::Ellipse& e, double scale) {
  const auto centre = [scale](double v) { return static_cast<float>((v + 0.5) * scale + 0.5); };
  const auto side = [scale](double semi_axis) { return static_cast<float>(2 * semi_axis * scale); };
  return {{centre(e.x), centre(e.y)}, {side(e.semi_a), side(e.semi_b)}, static_cast<float>(e.angle / CV_PI * 180)};
}

cv::Mat scaledSheet(double scale) {
  const int side = cvRound(100 * scale);
  return {side, side, CV_8UC3, cv::Scalar::all(50)};
}

// Every pixel of the strokes: two wide, of hard ends.
TEST(TargetDrawing, OutlineAndIdByOpenCv) {
  for (const double scale : {1.0, 1.7}) {
    kestrune::Ellipse turned = numbered(48.3, 52.9, 37.4, 21.2, 365);
    turned.angle = 0.4;
    const cv::RotatedRect box = boxOf(turned, scale);
    cv::Mat expected = scaledSheet(scale);
    cv::ellipse(expected, box, cv::Scalar(0, 0, 255), 2, cv::LINE_8);
    const cv::Point start(cvRound(box.center.x - 5), cvRound(box.center.y));
    const double width = box.size.width;
    cv::putText(expected, "365", start, cv::FONT_HERSHEY_SIMPLEX, width * 0.015, cv::Scalar(255, 0, 0),
                static_cast<int>(width * 0.03), cv::LINE_8, false);
    EXPECT_EQ(cv::norm(drawn(grey(), scale, {turned}, {}), expected, cv::NORM_INF), 0.0) << scale;
  }
}

TEST(TargetDrawing, OutlineAndDotByOpenCv) {
  for (const double scale : {1.0, 1.7}) {
    kestrune::Ellipse turned = numbered(48.3, 52.9, 37.4, 21.2, -1);
    turned.angle = 0.4;
    const cv::RotatedRect box = boxOf(turned, scale);
    cv::Mat expected = scaledSheet(scale);
    cv::ellipse(expected, box, cv::Scalar(255, 255, 0), 2, cv::LINE_8);
    cv::circle(expected, {cvRound(box.center.x), cvRound(box.center.y)}, 2, cv::Scalar(255, 255, 0), cv::FILLED);
    EXPECT_EQ(cv::norm(drawn(grey(), scale, {}, {turned}), expected, cv::NORM_INF), 0.0) << scale;
  }
}

struct RoundingCase {
  const char* name;
  double centre;  ///< As drawn, that is a pixel behind the ellipse's own.
  int pixel;
};

class TargetDrawingDrawnAt : public testing::TestWithParam<RoundingCase> {};

TEST_P(TargetDrawingDrawnAt, IdStandsAtTheNearestPixel) {
  // Five pixels to the left of the centre; the halves stay halves.
  for (const bool column : {true, false}) {
    const double centre = GetParam().centre;
    cv::Mat expected(200, 200, CV_8UC3, cv::Scalar::all(50));
    const cv::Point start(column ? GetParam().pixel : 95, column ? 100 : GetParam().pixel);
    cv::putText(expected, "7", start, cv::FONT_HERSHEY_SIMPLEX, 60 * 0.015, kBlue, 1);
    const kestrune::Ellipse e = numbered(column ? centre + 4 : 99, column ? 99 : centre - 1, 30, 30, 7);
    cv::Mat blue_expected, blue;
    cv::inRange(expected, kBlue, kBlue, blue_expected);
    cv::inRange(drawn(grey(200), 1.0, {e}, {}), kBlue, kBlue, blue);
    EXPECT_GT(cv::countNonZero(blue), 10);
    EXPECT_EQ(cv::norm(blue, blue_expected, cv::NORM_INF), 0.0) << column;
  }
}

TEST_P(TargetDrawingDrawnAt, DotStandsAtTheNearestPixel) {
  const int pixel = GetParam().pixel;
  const double own = GetParam().centre - 1;
  const cv::Mat dst = drawn(grey(200), 1.0, {}, {numbered(own, 49, 30, 30, -1), numbered(49, own, 30, 30, -1)});
  for (const int off : {-2, 2}) {
    EXPECT_EQ(dst.at<cv::Vec3b>(50, pixel + off), kCyan) << off;
    EXPECT_EQ(dst.at<cv::Vec3b>(pixel + off, 50), kCyan) << off;
    EXPECT_EQ(dst.at<cv::Vec3b>(50, pixel + off / 2 * 3), cv::Vec3b(50, 50, 50)) << off;
    EXPECT_EQ(dst.at<cv::Vec3b>(pixel + off / 2 * 3, 50), cv::Vec3b(50, 50, 50)) << off;
  }
}

INSTANTIATE_TEST_SUITE_P(Fractions, TargetDrawingDrawnAt,
                         testing::Values(RoundingCase{"Up", 120.75, 121}, RoundingCase{"Down", 120.25, 120},
                                         RoundingCase{"HalfToTheEvenOneBelow", 120.5, 120},
                                         RoundingCase{"HalfToTheEvenOneAbove", 121.5, 122}),
                         [](const auto& tested) { return tested.param.name; });

TEST(TargetDrawing, TheDotKeepsColumnAndRowApart) {
  const cv::Mat dst = drawn(grey(), 1.0, {}, {numbered(29, 59, 10, 10, -1)});
  EXPECT_EQ(dst.at<cv::Vec3b>(60, 30), kCyan);
  EXPECT_EQ(dst.at<cv::Vec3b>(30, 60), cv::Vec3b(50, 50, 50));
}

}  // namespace
