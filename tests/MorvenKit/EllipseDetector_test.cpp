#include "MorvenKit/EllipseDetector.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Drawing.h"

using namespace kestrune::morvenkit;

namespace {

using Ellipses = std::vector<Ellipse<double>>;

EllipseDetector<double> detector() { return {}; }

/// Dots 45 pixels apart, a ring and a ring with a core among them.
cv::Mat board() {
  cv::Mat image = drawing::sheet(420, 330);
  for (int row = 0; row < 6; ++row) {
    for (int col = 0; col < 8; ++col) {
      const double x = 50.3 + 45 * col, y = 50.2 + 45 * row;
      if (row == 2 && col == 2) {
        drawing::ring(image, x, y, 18, 11);
      } else if (row == 3 && col == 5) {
        drawing::solidRing(image, x, y, 20, 14, 7);
      } else {
        drawing::dot(image, x, y, 11);
      }
    }
  }
  cv::GaussianBlur(image, image, {0, 0}, 0.6);
  return image;
}

std::vector<int> classCounts(const Ellipses& ellipses) {
  std::vector<int> counts(256, 0);
  for (const auto& e : ellipses) ++counts[e.point_class];
  return counts;
}

std::string textOf(const cv::Exception& error) { return error.err; }

template <typename Call>
void expectAssertion(const Call& call, const std::string& text) {
  try {
    call();
    FAIL() << "nothing thrown, expected " << text;
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, -215);
    EXPECT_EQ(textOf(error), text);
  }
}

}  // namespace

TEST(EllipseDetector, ParametersAtConstruction) {
  const EllipseDetectorParams params;
  EXPECT_EQ(params.min_radius, 1.0);
  EXPECT_EQ(params.max_radius, 50.0);
  EXPECT_EQ(params.max_sigma, 1.0);
  EXPECT_EQ(params.min_circularity, 0.3);
  EXPECT_EQ(params.resize_interpolation, 2);
  EXPECT_TRUE(params.fill_blobs);
  EXPECT_FALSE(params.area_mode);
  EXPECT_EQ(params.bin_method, 0);
  EXPECT_EQ(params.bin_blocksize, 200);
}

TEST(EllipseDetector, FindsEveryMarkerOfABoard) {
  Ellipses found;
  cv::Mat binary;
  detector().detect(board(), found, binary, cv::Mat());
  const std::vector<int> counts = classCounts(found);
  EXPECT_EQ(counts[kDot], 46);
  EXPECT_EQ(counts[kRing], 1);
  EXPECT_EQ(counts[kSolidRing], 1);
  EXPECT_EQ(found.size(), 48U);
  for (const auto& e : found) {
    const double col = std::round((e.x - 50.3) / 45), row = std::round((e.y - 50.2) / 45);
    EXPECT_NEAR(e.x, 50.3 + 45 * col, 0.15);
    EXPECT_NEAR(e.y, 50.2 + 45 * row, 0.15);
  }
  EXPECT_EQ(binary.size(), cv::Size(420, 330));
  EXPECT_EQ(binary.at<uchar>(50, 50), 0);
  EXPECT_EQ(binary.at<uchar>(72, 72), 255);
}

TEST(EllipseDetector, FrameworkFindsTheSameUnclassified) {
  Ellipses classified, plain;
  cv::Mat binary;
  detector().detect(board(), classified, binary, cv::Mat());
  detector().detectframework(board(), plain, binary, cv::noArray());
  EXPECT_EQ(classCounts(plain)[kDot], 48);
  ASSERT_EQ(plain.size(), classified.size());
  for (std::size_t i = 0; i < plain.size(); ++i) EXPECT_EQ(plain[i].x, classified[i].x);
}

TEST(EllipseDetector, ResultsAreAppendedAndCallsAreIndependent) {
  Ellipses found;
  cv::Mat binary;
  const EllipseDetector<double> one;
  one.detect(board(), found, binary, cv::Mat());
  one.detect(board(), found, binary, cv::Mat());
  ASSERT_EQ(found.size(), 96U);
  EXPECT_EQ(found[0].x, found[48].x);
}

TEST(EllipseDetector, MaskRefusesCentres) {
  cv::Mat mask(330, 420, CV_8UC1, cv::Scalar(255)), binary;
  mask(cv::Rect(0, 0, 420, 72)).setTo(0);
  Ellipses found;
  detector().detect(board(), found, binary, mask);
  EXPECT_EQ(found.size(), 40U);
}

TEST(EllipseDetector, MaskedDotMakesTheDetectorTryTheChildren) {
  // A large ring around a dot: with the ring's centre masked out its inner rim is tried next, whose centre is masked
  // out too; a dot off that centre is what is left.
  cv::Mat image = drawing::sheet(300, 300);
  drawing::ring(image, 150.3, 150.2, 60, 40);
  drawing::dot(image, 165.3, 150.2, 12);
  Ellipses found;
  cv::Mat binary, mask(300, 300, CV_8UC1, cv::Scalar(255));
  detector().detectframework(image, found, binary, mask);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 150.3, 0.3);
  found.clear();
  mask(cv::Rect(148, 148, 5, 5)).setTo(0);
  detector().detectframework(image, found, binary, mask);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 165.3, 0.3);
}

TEST(EllipseDetector, AreaModeTellsBigDots) {
  cv::Mat image = drawing::sheet(420, 330);
  for (int row = 0; row < 6; ++row) {
    for (int col = 0; col < 8; ++col)
      drawing::dot(image, 50.3 + 45 * col, 50.2 + 45 * row, row == 2 && col == 3 ? 17 : 11);
  }
  EllipseDetector<double> one;
  one.params.area_mode = true;
  Ellipses found;
  cv::Mat binary;
  one.detect(image, found, binary, cv::Mat());
  EXPECT_EQ(classCounts(found)[kDot], 47);
  EXPECT_EQ(classCounts(found)[kBigDot], 1);
}

// A disc of some 68 border pixels, a disc of some 23 and a bar. The border of the sheet itself is the fourth contour,
// too long for a mark.
TEST(EllipseDetector, TellsWhatBecameOfTheContours) {
  cv::Mat image = drawing::sheet(420, 330);
  drawing::dot(image, 100.3, 100.2, 12);
  drawing::dot(image, 300.3, 100.2, 4);
  EllipseDetector<double> one;
  one.params.min_radius = 8;  // 40 pixels.
  Ellipses found;
  cv::Mat binary, mask(330, 420, CV_8UC1, cv::Scalar(255));
  kestrune::morvenkit::ContourCounts counts = one.detect(image, found, binary, mask);
  EXPECT_EQ(counts.traced, 3U);
  EXPECT_EQ(counts.too_short, 1U);
  EXPECT_EQ(counts.not_round, 1U);
  EXPECT_EQ(counts.not_fitted, 0U);
  EXPECT_EQ(counts.inexact, 0U);
  EXPECT_EQ(counts.accepted, 1U);
  EXPECT_EQ(one.detectframework(image, found, binary, mask).accepted, 1U);
  mask.at<uchar>(100, 100) = 0;
  counts = one.detect(image, found, binary, mask);
  EXPECT_EQ(counts.not_fitted, 1U);
  EXPECT_EQ(counts.accepted, 0U);
  one.params.max_sigma = 1e-9;
  counts = one.detect(image, found, binary, cv::Mat());
  EXPECT_EQ(counts.inexact, 1U);
  EXPECT_EQ(counts.accepted, 0U);
}

TEST(EllipseDetector, MethodOutsideTheTableFindsNothing) {
  EllipseDetector<double> one;
  one.params.bin_method = 3;
  Ellipses found;
  cv::Mat binary = drawing::sheet(5, 5);
  one.detect(board(), found, binary, cv::Mat());
  EXPECT_TRUE(found.empty());
  EXPECT_TRUE(binary.empty());
  one.detectframework(board(), found, binary, cv::Mat());
  EXPECT_TRUE(found.empty());
}

TEST(EllipseDetector, BlankImageGivesNoEllipse) {
  Ellipses found;
  cv::Mat binary;
  detector().detect(drawing::sheet(300, 300), found, binary, cv::Mat());
  EXPECT_TRUE(found.empty());
  detector().detect(drawing::sheet(300, 300, 0), found, binary, cv::Mat());
  EXPECT_TRUE(found.empty());
}

TEST(EllipseDetector, WrongInputIsAsserted) {
  Ellipses found;
  cv::Mat binary;
  const cv::Mat good = board();
  const auto call = [&](const cv::Mat& image, const cv::Mat& mask) {
    return [&found, &binary, image, mask] { detector().detect(image, found, binary, mask); };
  };
  const auto frame = [&](const cv::Mat& image, const cv::Mat& mask) {
    return [&found, &binary, image, mask] { detector().detectframework(image, found, binary, mask); };
  };
  const cv::Mat colour(330, 420, CV_8UC3), deep(330, 420, CV_16UC1), smallMask(329, 420, CV_8UC1);
  expectAssertion(call(colour, {}), "image.type() == CV_8UC1");
  expectAssertion(call(deep, smallMask), "image.type() == CV_8UC1");
  expectAssertion(call({}, {}), "!image.empty()");
  expectAssertion(call({}, smallMask), "!image.empty()");
  expectAssertion(call(good, smallMask), "mask.size() == image.size()");
  expectAssertion(call(good, colour), "mask.type() == CV_8UC1");
  expectAssertion(call(good, cv::Mat(10, 10, CV_8UC3)), "mask.size() == image.size()");
  expectAssertion(frame(colour, {}), "image.type() == CV_8UC1");
  expectAssertion(frame({}, {}), "!image.empty()");
  expectAssertion(frame(good, smallMask), "mask.size() == image.size()");
  expectAssertion(frame(good, colour), "mask.type() == CV_8UC1");
  EXPECT_TRUE(found.empty());
}

TEST(EllipseDetector, WindowsOfALargerImageAreAccepted) {
  const cv::Mat whole = board();
  Ellipses found;
  cv::Mat binary;
  detector().detectframework(whole(cv::Rect(0, 0, 420, 207)), found, binary, cv::Mat());
  EXPECT_EQ(found.size(), 32U);
}
