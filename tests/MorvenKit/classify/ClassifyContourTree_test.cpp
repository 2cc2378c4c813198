#include "MorvenKit/src/classify/ClassifyContourTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>
#include <optional>

#include "Drawing.h"
#include "MorvenKit/src/contours/RefineSubPixel.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"
#include "support/ConsoleCapture.h"

using namespace kestrune::morvenkit;

namespace {

using Ellipses = std::vector<Ellipse<double>>;
constexpr int kSide = 160;

/// A grey picture, its two-valued form and everything a walk needs.
struct Scene {
  cv::Mat grey = drawing::sheet(kSide, kSide);
  cv::Mat mask;
  EllipseDetectorParams params;

  Ellipses walk(decltype(ClassifyContourTree) rule = ClassifyContourTree) const {
    const cv::Mat binary = drawing::split(grey);
    const ContourTree tree = findContourTree(binary);
    return walk(tree, binary, rule);
  }
  Ellipses walk(const ContourTree& tree, const cv::Mat& binary,
                decltype(ClassifyContourTree) rule = ClassifyContourTree) const {
    Ellipses ellipses;
    rule({params, tree, grey, binary, mask}, ellipses);
    return ellipses;
  }
};

/// A single contour without relatives.
ContourTree lone(Contour contour) {
  ContourTree tree;
  tree.contours = {std::move(contour)};
  tree.hierarchy = {{-1, -1, -1, -1}};
  return tree;
}

ContourTree parentAndChild(Contour parent, Contour child) {
  ContourTree tree;
  tree.contours = {std::move(parent), std::move(child)};
  tree.hierarchy = {{-1, -1, 1, -1}, {-1, -1, -1, 0}};
  return tree;
}

std::vector<int> classes(const Ellipses& ellipses) {
  std::vector<int> result;
  for (const auto& e : ellipses) result.push_back(e.point_class);
  std::sort(result.begin(), result.end());
  return result;
}

const Contour kOuter = drawing::discContour(80, 80, 30), kInner = drawing::discContour(60, 60, 12);
const cv::Mat kBinary = cv::Mat::zeros(kSide, kSide, CV_8UC1);

}  // namespace

TEST(ClassifyContourTree, EveryMarkerGetsItsClass) {
  Scene scene;
  drawing::dot(scene.grey, 40.3, 40.2, 14);
  drawing::ring(scene.grey, 110.4, 40.1, 18, 10);
  drawing::solidRing(scene.grey, 60.2, 110.3, 24, 16, 7);
  const Ellipses found = scene.walk();
  ASSERT_EQ(found.size(), 3U);
  for (const auto& e : found) {
    const cv::Point2d truth = e.point_class == kDot    ? cv::Point2d(40.3, 40.2)
                              : e.point_class == kRing ? cv::Point2d(110.4, 40.1)
                                                       : cv::Point2d(60.2, 110.3);
    EXPECT_NEAR(e.x, truth.x, 0.2);
    EXPECT_NEAR(e.y, truth.y, 0.2);
    EXPECT_EQ(e.id, -1);
    EXPECT_GT(e.sigma, 0.0);
    EXPECT_GT(e.edge_points.size(), 50U);
  }
  EXPECT_EQ(classes(found), (std::vector<int>{kDot, kRing, kSolidRing}));
}

TEST(ClassifyContourTree, FlatWalkFindsTheSameWithClassDot) {
  Scene scene;
  drawing::dot(scene.grey, 40.3, 40.2, 14);
  drawing::ring(scene.grey, 110.4, 40.1, 18, 10);
  const Ellipses flat = scene.walk(ClassifyContourTreeFlat), classified = scene.walk();
  EXPECT_EQ(classes(flat), (std::vector<int>{kDot, kDot}));
  ASSERT_EQ(flat.size(), classified.size());
  for (std::size_t i = 0; i < flat.size(); ++i) {
    EXPECT_EQ(flat[i].x, classified[i].x);
    EXPECT_EQ(flat[i].edge_points, classified[i].edge_points);
  }
}

TEST(ClassifyContourTree, EllipsesAreAppended) {
  const Scene scene;
  const ContourTree tree = lone(kInner);
  Ellipses ellipses(2);
  ClassifyContourTreeFlat({scene.params, tree, scene.grey, kBinary, scene.mask}, ellipses);
  EXPECT_EQ(ellipses.size(), 3U);
}

TEST(ClassifyContourTree, EmptyTreeGivesNothing) {
  EXPECT_TRUE(Scene().walk(ContourTree(), kBinary).empty());
  Scene scene;
  scene.params.area_mode = true;
  EXPECT_TRUE(scene.walk(ContourTree(), kBinary).empty());
}

// --- lengths

TEST(ClassifyContourTree, SevenPointsHideThemselvesAndTheirChildren) {
  Contour seven(kInner.begin(), kInner.begin() + 7);
  EXPECT_TRUE(Scene().walk(parentAndChild(seven, kInner), kBinary).empty());
}

TEST(ClassifyContourTree, EightPointsAreLookedAt) {
  // By turns sqrt(68) and sqrt(65) from the centre: the residual of eight is half the difference, 0.092.
  const Contour eight = {{68, 62}, {64, 67}, {58, 68}, {53, 64}, {52, 58}, {56, 53}, {62, 52}, {67, 56}};
  const Contour seven(eight.begin(), eight.begin() + 7);
  for (const Contour& contour : {eight, seven}) {
    const double sigma = fitEllipseRobust({contour.begin(), contour.end()}).sigma;
    ASSERT_GT(sigma, 0.07);
    ASSERT_LT(sigma, 0.1);
  }
  EXPECT_EQ(Scene().walk(lone(eight), kBinary).size(), 1U);
  EXPECT_TRUE(Scene().walk(lone(seven), kBinary).empty());
}

TEST(ClassifyContourTree, ThirtyPointsAreTheLeastByArea) {
  Scene scene;
  scene.params.area_mode = true;
  Contour thirty;
  for (const auto& p : drawing::Outline{60, 60, 12, 12}.points(30)) thirty.emplace_back(cvRound(p.x), cvRound(p.y));
  EXPECT_EQ(scene.walk(lone(thirty), kBinary).size(), 1U);
  EXPECT_EQ(scene.walk(lone(thirty), kBinary, ClassifyContourTreeFlat).size(), 1U);
  thirty.pop_back();
  EXPECT_TRUE(scene.walk(lone(thirty), kBinary).empty());
  EXPECT_TRUE(scene.walk(lone(thirty), kBinary, ClassifyContourTreeFlat).empty());
  scene.params.area_mode = false;
  EXPECT_EQ(scene.walk(lone(thirty), kBinary).size(), 1U);
}

TEST(ClassifyContourTree, LengthMustReachFiveTimesTheLeastRadius) {
  Scene scene;
  const auto length = static_cast<double>(kInner.size());
  scene.params.min_radius = length / 5.0;
  EXPECT_EQ(scene.walk(lone(kInner), kBinary).size(), 1U);
  scene.params.min_radius = (length + 0.01) / 5.0;
  EXPECT_TRUE(scene.walk(parentAndChild(kInner, kInner), kBinary).empty());
}

TEST(ClassifyContourTree, TooLongAContourGivesWayToItsChildren) {
  Scene scene;
  const auto length = static_cast<double>(kOuter.size());
  scene.params.max_radius = length / 8.5;
  ASSERT_EQ(scene.params.max_radius * 8.5, length);
  Ellipses found = scene.walk(parentAndChild(kOuter, kInner), kBinary);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 60.0, 0.1);
  scene.params.max_radius = (length + 0.01) / 8.5;
  found = scene.walk(parentAndChild(kOuter, kInner), kBinary);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 80.0, 0.1);
}

// --- what hides and what gives way

TEST(ClassifyContourTree, AnAngularContourGivesWayToItsChildren) {
  Scene scene;
  scene.params.min_circularity = 0.79;
  const Contour square = findContourTree([] {
                           cv::Mat image = kBinary.clone();
                           image(cv::Rect(20, 20, 80, 80)).setTo(255);
                           return image;
                         }())
                             .points(0);
  const Ellipses found = scene.walk(parentAndChild(square, kInner), kBinary);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 60.0, 0.1);
}

TEST(ClassifyContourTree, MaskedCentreGivesWayToTheChildren) {
  Scene scene;
  scene.mask = cv::Mat(kSide, kSide, CV_8UC1, cv::Scalar(255));
  const ContourTree tree = parentAndChild(kOuter, kInner);
  EXPECT_NEAR(scene.walk(tree, kBinary).at(0).x, 80.0, 0.1);
  scene.mask.at<uchar>(80, 80) = 0;
  EXPECT_NEAR(scene.walk(tree, kBinary).at(0).x, 60.0, 0.1);
  scene.mask.setTo(0);
  EXPECT_TRUE(scene.walk(tree, kBinary).empty());
}

TEST(ClassifyContourTree, MaskIsReadAtTheRoundedCentre) {
  // The centre is (60.7, 59.7): pixel (61, 60).
  Scene scene;
  Contour contour;
  for (const auto& p : drawing::Outline{60.7, 59.7, 20, 20}.points(120))
    contour.emplace_back(cvRound(p.x), cvRound(p.y));
  scene.mask = cv::Mat(kSide, kSide, CV_8UC1, cv::Scalar(1));
  scene.mask.at<uchar>(60, 61) = 0;
  EXPECT_TRUE(scene.walk(lone(contour), kBinary).empty());
  scene.mask.setTo(0);
  scene.mask.at<uchar>(60, 61) = 1;
  EXPECT_EQ(scene.walk(lone(contour), kBinary).size(), 1U);
}

TEST(ClassifyContourTree, CentreOffTheMaskIsMaskedOut) {
  // Half a circle whose other half, with the centre, lies beyond the edge.
  Scene scene;
  Contour half;
  for (int i = 0; i <= 80; ++i) {
    const double t = CV_PI * (2.0 * i - 80.0) / 180.0;
    half.emplace_back(cvRound(-4 + 50 * std::cos(t)), cvRound(80 + 50 * std::sin(t)));
  }
  const ContourTree tree = parentAndChild(half, kInner);
  EXPECT_TRUE(scene.walk(tree, kBinary).empty());
  scene.mask = cv::Mat(kSide, kSide, CV_8UC1, cv::Scalar(255));
  EXPECT_EQ(scene.walk(tree, kBinary).size(), 1U);
}

namespace {

struct CentredContour {
  Contour contour;
  cv::Point pixel;  ///< The centre lies half a pixel to the right of it and below.
};

/// A contour of mirrored quarters, moved to where the fit finds its centre to the last digit.
std::optional<CentredContour> centredBetweenPixels() {
  const Contour quarter = {{12, 1}, {12, 3}, {11, 6}, {9, 9}, {6, 11}, {3, 12}, {1, 12}};  // Seen from the pixel.
  for (int y = 40; y < 100; ++y) {
    for (int x = 40; x < 100; ++x) {
      Contour contour;
      for (auto p = quarter.begin(); p != quarter.end(); ++p) contour.emplace_back(x + p->x, y + p->y);
      for (auto p = quarter.rbegin(); p != quarter.rend(); ++p) contour.emplace_back(x + 1 - p->x, y + p->y);
      for (auto p = quarter.begin(); p != quarter.end(); ++p) contour.emplace_back(x + 1 - p->x, y + 1 - p->y);
      for (auto p = quarter.rbegin(); p != quarter.rend(); ++p) contour.emplace_back(x + p->x, y + 1 - p->y);
      const auto fit = fitEllipseRobust({contour.begin(), contour.end()});
      if (fit.x == x + 0.5 && fit.y == y + 0.5) return CentredContour{contour, {x, y}};
    }
  }
  return std::nullopt;
}

}  // namespace

TEST(ClassifyContourTree, CentreHalfAPixelBehindTheLastOneOfTheMaskIsOff) {
  const auto centred = centredBetweenPixels();
  ASSERT_TRUE(centred);
  // Windows of a mask that goes on beyond them.
  const cv::Mat white(kSide, kSide, CV_8UC1, cv::Scalar(255));
  const auto found = [&](int cols, int rows) {
    Scene scene;
    scene.params.min_radius = 1.0;
    scene.mask = white(cv::Rect(0, 0, cols, rows));
    return scene.walk(lone(centred->contour), kBinary).size();
  };
  EXPECT_EQ(found(centred->pixel.x + 2, kSide), 1U);
  EXPECT_EQ(found(centred->pixel.x + 1, kSide), 0U);
  EXPECT_EQ(found(kSide, centred->pixel.y + 2), 1U);
  EXPECT_EQ(found(kSide, centred->pixel.y + 1), 0U);
}

namespace {

/// Eight sails of a windmill about (80, 80): three points each, the last of an eighth in the centre, so that no ray
/// leads anywhere.
Contour windmill() {
  const std::vector<cv::Point> first = {{40, 0},  {28, 28},   {0, 40},  {-28, 28},
                                        {-40, 0}, {-28, -28}, {0, -40}, {28, -28}};
  Contour contour;
  for (const cv::Point& p : first) {
    const cv::Point middle(80, 80), aside(-p.y / 2, p.x / 2);
    contour.insert(contour.end(), {middle + p, middle + p + aside, middle});
  }
  return contour;
}

}  // namespace

// The status comes before the fit and before the mask: the line that tells of it does not wait for them.
TEST(ClassifyContourTree, StatusIsTakenOfWhatIsNotFittedOrMaskedOut) {
  const ContourTree tree = parentAndChild(windmill(), kInner);
  Scene scene;
  scene.params.min_circularity = 0.01;
  ASSERT_EQ(fitEllipseRobust(RefineSubPixel(tree.points(0), scene.grey)).sigma, -1.0);
  for (const bool masked : {false, true}) {
    if (masked) scene.mask = cv::Mat::zeros(kSide, kSide, CV_8UC1);
    const ConsoleCapture console;
    const Ellipses found = scene.walk(tree, kBinary);
    EXPECT_EQ(console.err(), "No detected hop times in circle: 0\xEF\xBC\x81\n");
    EXPECT_EQ(found.size(), masked ? 0U : 1U) << "the child alone";
  }
}

TEST(ClassifyContourTree, SigmaOfAFailedFitGivesWayToTheChildren) {
  // A square's corners lie too far from any ellipse: the root mean square is above 1 pixel.
  cv::Mat image = kBinary.clone();
  image(cv::Rect(40, 40, 80, 80)).setTo(255);
  const Contour square = findContourTree(image).points(0);
  ASSERT_EQ(fitEllipseRobust({square.begin(), square.end()}).sigma, -1.0);
  const Ellipses found = Scene().walk(parentAndChild(square, kInner), kBinary);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 60.0, 0.1);
}

namespace {

/// Eight points of the circle of radius sqrt(20), moved to where their fit has no residual at all. That is the case in
/// most places; which ones depends on the last bit of the solved conic.
std::optional<Contour> exactOctagon() {
  for (int y = 80; y < 150; ++y) {
    for (int x = 80; x < 150; ++x) {
      Contour octagon;
      for (const cv::Point& p : {cv::Point(-2, -4), {2, -4}, {4, -2}, {4, 2}, {2, 4}, {-2, 4}, {-4, 2}, {-4, -2}})
        octagon.push_back(cv::Point(x, y) + p);
      if (fitEllipseRobust({octagon.begin(), octagon.end()}).sigma == 0.0) return octagon;
    }
  }
  return std::nullopt;
}

}  // namespace

TEST(ClassifyContourTree, SigmaOfZeroGivesWayToTheChildren) {
  const std::optional<Contour> octagon = exactOctagon();
  ASSERT_TRUE(octagon);
  for (const auto rule : {ClassifyContourTree, ClassifyContourTreeFlat}) {
    const Ellipses found = Scene().walk(parentAndChild(*octagon, kInner), kBinary, rule);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_NEAR(found[0].x, 60.0, 0.1);
  }
}

TEST(ClassifyContourTree, SigmaAtTheLimitHidesTheChildren) {
  Scene scene;
  const ContourTree tree = parentAndChild(kOuter, kInner);
  const double sigma = scene.walk(tree, kBinary).at(0).sigma;
  scene.params.max_sigma = sigma;
  EXPECT_TRUE(scene.walk(tree, kBinary).empty());
  scene.params.max_sigma = std::nextafter(sigma, 2.0);
  EXPECT_EQ(scene.walk(tree, kBinary).size(), 1U);
}

TEST(ClassifyContourTree, EllipseBelowTheCircularityGivesWayToTheChildren) {
  Scene scene;
  cv::Mat image = kBinary.clone();
  cv::ellipse(image, {80, 80}, {44, 12}, 0, 0, 360, 255, cv::FILLED);
  const Contour flat = findContourTree(image).points(0);
  const Ellipses open = scene.walk(parentAndChild(flat, kInner), kBinary);
  ASSERT_EQ(open.size(), 1U);
  ASSERT_NEAR(open[0].x, 80.0, 0.1);
  ASSERT_GT(open[0].semi_a, open[0].semi_b);
  // By hand: perimeter 4 * 32 + 2 pi 12 = 203.4, area pi * 44 * 12 = 1658.8, circularity 0.504. The outline's own is
  // larger.
  const double own = contourCircularity(flat);
  ASSERT_GT(own, 0.51);
  scene.params.min_circularity = (own + 0.504) / 2.0;
  const Ellipses found = scene.walk(parentAndChild(flat, kInner), kBinary);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 60.0, 0.1);
}

TEST(ClassifyContourTree, EllipseAtTheCircularityGivesWayToTheChildren) {
  Scene scene;
  cv::Mat image = kBinary.clone();
  cv::ellipse(image, {80, 80}, {44, 12}, 0, 0, 360, 255, cv::FILLED);
  const ContourTree tree = parentAndChild(findContourTree(image).points(0), kInner);
  const double limit = ellipseCircularity(scene.walk(tree, kBinary).at(0));
  scene.params.min_circularity = limit;
  EXPECT_NEAR(scene.walk(tree, kBinary).at(0).x, 60.0, 0.1);
  scene.params.min_circularity = std::nextafter(limit, 0.0);
  EXPECT_NEAR(scene.walk(tree, kBinary).at(0).x, 80.0, 0.1);
}

namespace {

/// A circle of radius 30 that lacks 60 degrees around direction `gap` (degrees): its points end 26 pixels from the
/// centre there, and the fitted ellipse goes on to 30.
Contour openCircle(int x, int y, double gap) {
  Contour contour;
  for (int i = 0; i <= 150; ++i) {
    const double t = (gap + 30.0 + 2.0 * i) * CV_PI / 180.0;
    contour.emplace_back(cvRound(x + 30 * std::cos(t)), cvRound(y + 30 * std::sin(t)));
  }
  return contour;
}

}  // namespace

struct EdgeCase {
  const char* name;
  int x, y;  ///< Centre, 28 pixels from the edge in question.
  double gap;
  cv::Point inwards;
};

class ClassifyContourTreeBoxAtTheEdge : public testing::TestWithParam<EdgeCase> {};

TEST_P(ClassifyContourTreeBoxAtTheEdge, DropsTheEllipseAndHidesItsChildren) {
  const EdgeCase& c = GetParam();
  const Ellipses beyond = Scene().walk(parentAndChild(openCircle(c.x, c.y, c.gap), kInner), kBinary);
  EXPECT_TRUE(beyond.empty());
  const cv::Point moved = cv::Point(c.x, c.y) + 3 * c.inwards;
  const Ellipses within = Scene().walk(parentAndChild(openCircle(moved.x, moved.y, c.gap), kInner), kBinary);
  ASSERT_EQ(within.size(), 1U);
  EXPECT_NEAR(within[0].x, moved.x, 0.3);
  EXPECT_NEAR(within[0].semi_a, 30.0, 0.5);
}

INSTANTIATE_TEST_SUITE_P(Sides, ClassifyContourTreeBoxAtTheEdge,
                         testing::Values(EdgeCase{"Left", 28, 80, 180, {1, 0}}, EdgeCase{"Right", 132, 80, 0, {-1, 0}},
                                         EdgeCase{"Top", 80, 28, 270, {0, 1}},
                                         EdgeCase{"Bottom", 80, 132, 90, {0, -1}}),
                         [](const auto& entry) { return entry.param.name; });

TEST(ClassifyContourTree, BoxMayReachTheNumberOfColumnsButNotBelowZero) {
  // Radius 30.4 rounds to pixels 30 away. To the right, 129 + 30.4 is beyond the last column 159 but not beyond 160.
  const auto rounded = [](int x) {
    Contour contour;
    for (const auto& p : drawing::Outline{static_cast<double>(x), 80, 30.4, 30.4}.points(180)) {
      contour.emplace_back(cvRound(p.x), cvRound(p.y));
    }
    return contour;
  };
  EXPECT_EQ(Scene().walk(lone(rounded(129)), kBinary).size(), 1U);
  EXPECT_EQ(Scene().walk(lone(rounded(30)), kBinary).size(), 0U);
  EXPECT_EQ(Scene().walk(lone(rounded(31)), kBinary).size(), 1U);
}

TEST(ClassifyContourTree, DroppedPointsHideTheChildren) {
  // The disc stands 3 pixels from the edge; one of its points lies outside, the ellipse of the others well inside.
  Contour near = kOuter;
  for (auto& p : near) p.x -= 47;
  EXPECT_EQ(Scene().walk(lone(near), kBinary).size(), 1U);
  std::min_element(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.x < b.x; })->x = -1;
  EXPECT_TRUE(Scene().walk(parentAndChild(near, kInner), kBinary).empty());
}

TEST(ClassifyContourTree, AppendedEllipseHidesItsChildren) {
  const Ellipses found = Scene().walk(parentAndChild(kOuter, kInner), kBinary);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NEAR(found[0].x, 80.0, 0.1);
}

TEST(ClassifyContourTree, LostContoursAreClassRejected) {
  // All black: no transition anywhere.
  EXPECT_EQ(classes(Scene().walk(lone(kInner), kBinary)), std::vector<int>{kRejected});
}

// --- by area

namespace {

Scene byArea() {
  Scene scene;
  scene.grey = drawing::sheet(400, 120);
  scene.params.area_mode = true;
  return scene;
}

ContourTree discs(const std::vector<int>& radii) {
  ContourTree tree;
  int x = 20;
  for (std::size_t i = 0; i < radii.size(); ++i) {
    tree.contours.push_back(drawing::discContour(x, 60, radii[i]));
    tree.hierarchy.emplace_back(i + 1 < radii.size() ? static_cast<int>(i) + 1 : -1, static_cast<int>(i) - 1, -1, -1);
    x += 2 * radii[i] + 10;
  }
  return tree;
}

std::vector<int> classesInOrder(const Ellipses& ellipses) {
  std::vector<int> result;
  for (const auto& e : ellipses) result.push_back(e.point_class);
  return result;
}

const cv::Mat kStrip = cv::Mat::zeros(120, 400, CV_8UC1);

}  // namespace

TEST(ClassifyContourTreeByArea, BigDotsStandOutFromTheMean) {
  EXPECT_EQ(classesInOrder(byArea().walk(discs({10, 10, 10, 10, 16, 10}), kStrip)),
            (std::vector<int>{kDot, kDot, kDot, kDot, kBigDot, kDot}));
}

TEST(ClassifyContourTreeByArea, SpecksAreUnknown) {
  // Radius 6 has 32 points and a seventh of the area of radius 16.
  EXPECT_EQ(classesInOrder(byArea().walk(discs({16, 6, 16, 16, 16, 16}), kStrip)),
            (std::vector<int>{kDot, kUnknown, kDot, kDot, kDot, kDot}));
}

TEST(ClassifyContourTreeByArea, FlatWalkCallsEverythingADot) {
  EXPECT_EQ(classesInOrder(byArea().walk(discs({10, 10, 16, 6}), kStrip, ClassifyContourTreeFlat)),
            (std::vector<int>{0, 0, 0, 0}));
}

TEST(ClassifyContourTreeByArea, WithoutABlobEverythingIsUnknown) {
  // Longer than 300 points, so outside the mean, but short enough to be fitted.
  Scene scene = byArea();
  scene.grey = drawing::sheet(140, 140);
  EXPECT_EQ(classesInOrder(scene.walk(lone(drawing::discContour(68, 68, 55)), cv::Mat::zeros(140, 140, CV_8UC1))),
            std::vector<int>{kUnknown});
}

TEST(ClassifyContourTreeByArea, AThickOutlineIsMeasuredAtItsInnerBorder) {
  for (const auto rule : {ClassifyContourTree, ClassifyContourTreeFlat}) {
    Scene scene;
    scene.params.area_mode = true;
    const ContourTree tree = parentAndChild(kOuter, drawing::discContour(80, 80, 24));
    const Ellipses found = scene.walk(tree, kBinary, rule);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_NEAR(found[0].semi_a, 24.0, 1.0);
    scene.params.area_mode = false;
    EXPECT_NEAR(scene.walk(tree, kBinary, rule).at(0).semi_a, 30.0, 0.5);
  }
}

TEST(ClassifyContourTreeByArea, AThickOutlineCountsByTheAreaWithinIt) {
  // Of radius 10 within, as the others are; its outer border has twice their area.
  ContourTree tree = discs({10, 10, 10, 14});
  const cv::Rect outer = cv::boundingRect(tree.points(3));
  const auto inner = [&outer](int radius) { return drawing::discContour(outer.x + 14, outer.y + 14, radius); };
  tree.contours.push_back(inner(10));
  tree.hierarchy.emplace_back(-1, -1, -1, 3);
  tree.hierarchy[3][2] = 4;
  EXPECT_EQ(classesInOrder(byArea().walk(tree, kStrip)), (std::vector<int>{kDot, kDot, kDot, kDot}));
  // Of radius 7 within, against three of 20: a seventh of the mean, while the outer border has two thirds of it.
  tree.contours[4] = inner(7);
  tree.contours[0] = tree.contours[1] = tree.contours[2] = drawing::discContour(100, 60, 20);
  EXPECT_EQ(classesInOrder(byArea().walk(tree, kStrip)), (std::vector<int>{kBigDot, kBigDot, kBigDot, kUnknown}));
}

TEST(ClassifyContourTreeByArea, AChildOfThirtyPointsStandsForNobody) {
  Scene scene;
  scene.params.area_mode = true;
  Contour child;
  for (const auto& p : drawing::Outline{80, 80, 12, 12}.points(31)) child.emplace_back(cvRound(p.x), cvRound(p.y));
  EXPECT_NEAR(scene.walk(parentAndChild(kOuter, child), kBinary).at(0).semi_a, 12.0, 0.5);
  child.pop_back();
  EXPECT_NEAR(scene.walk(parentAndChild(kOuter, child), kBinary).at(0).semi_a, 30.0, 0.5);
}
