// Whole detections of rendered boards, against the known images of their dots.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "Tallowfen/src/RingTarget.h"
#include "tests/support/ConsoleCapture.h"
#include "tools/scene/BoardMarks.h"
#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"

namespace {

using kestrune::DetectionStep;
using kestrune::RingTarget;
using scene::BoardKind;

/// A board of 21 x 23 dots before one camera, and what is true of it.
class View {
 public:
  View(BoardKind kind, int width, int height, const scene::PoseWish& wish = {4.0, -6.0, 2.0}) {
    scene_.board.kind = kind;
    scene_.board.rows = 21;
    scene_.board.cols = 23;
    scene_.board.inner_width = kind == BoardKind::kBigDots ? 5 : 9;
    scene_.board.inner_height = kind == BoardKind::kBigDots ? 5 : 7;
    scene::Camera& camera = scene_.rig.left;
    camera.width = width;
    camera.height = height;
    camera.fx = camera.fy = 1.4 * width;
    camera.cx = (width - 1) / 2.0;
    camera.cy = (height - 1) / 2.0;
    scene_.rig.right = camera;
    pose_ = scene::fitPose(scene_.rig, scene_.board, wish);
    image_ = scene::renderImage(camera, scene_.board, pose_, {.texture = 0.0, .blur_sigma = 0.6}, 5);
  }

  const cv::Mat& image() const { return image_; }
  std::string config() const { return scene::targetIni(scene_); }
  std::string configWith(const std::string& lines) const { return config() + lines; }

  /// Centre of a mark's imaged outline, pixels.
  scene::Point2 centreOf(std::int32_t id) const {
    const scene::Mark mark = scene::marksOf(scene_.board).at(static_cast<std::size_t>(id));
    const scene::Point3 place = scene::gridPoint(scene_.board, mark.column, mark.row);
    return scene::imagedEllipse(scene_.rig.left, pose_, place, mark.radii.outer * scene_.board.step).centre;
  }
  std::size_t count() const { return scene::marksOf(scene_.board).size(); }

 private:
  scene::Scene scene_;
  scene::Pose pose_;
  cv::Mat image_;
};

struct Detection {
  RingTarget target;
  RingTarget::Points points;
  RingTarget::Points unidentified;
  bool found = false;
  std::string out, err;

  void load(const std::string& config) {
    const ConsoleCapture console;
    ASSERT_TRUE(target.loadConfig(config));
  }
  void detect(const cv::Mat& image, const cv::Mat& mask = {}) {
    const ConsoleCapture console;
    found = target.detect(image, points, unidentified, mask);
    out = console.out();
    err = console.err();
  }
};

double offBy(const View& view, const kestrune::CtrlPoint& point) {
  const scene::Point2 truth = view.centreOf(point.id);
  return std::hypot(point.x - truth.x, point.y - truth.y);
}

double worstOf(const View& view, const RingTarget::Points& points) {
  double worst = 0.0;
  for (const auto& point : points) worst = std::max(worst, offBy(view, point));
  return worst;
}

void expectEachIdOnce(const RingTarget::Points& points) {
  std::set<std::int32_t> ids;
  for (const auto& point : points) ids.insert(point.id);
  EXPECT_EQ(ids.size(), points.size());
}

struct BoardCase {
  const char* name;
  BoardKind kind;
  int width, height;
  double worst;  ///< Pixels.
  bool rings_small, solid_big, big_dots;
  std::size_t missing;  ///< Places covered by big markers.
};

class RingTargetDetectionBoards : public testing::TestWithParam<BoardCase> {};

TEST_P(RingTargetDetectionBoards, EveryDotGetsItsIdAtItsPlace) {
  const BoardCase& given = GetParam();
  const View view(given.kind, given.width, given.height);
  Detection detection;
  detection.load(view.config());
  detection.detect(view.image());
  EXPECT_TRUE(detection.found);
  EXPECT_EQ(detection.err, "");
  EXPECT_EQ(detection.points.size(), view.count() - given.missing);
  expectEachIdOnce(detection.points);
  EXPECT_LT(worstOf(view, detection.points), given.worst);
  EXPECT_EQ(detection.target.markerSizes().rings_small, given.rings_small);
  EXPECT_EQ(detection.target.markerSizes().solid_big, given.solid_big);
  EXPECT_EQ(detection.target.markerSizes().big_dot_board, given.big_dots);
  EXPECT_EQ(detection.target.identifiedEllipses().size(), detection.points.size());
  EXPECT_EQ(detection.target.unidentifiedEllipses().size(), detection.unidentified.size());
}

// Both ends of each row of the working scale. The middle row is for big dots alone.
INSTANTIATE_TEST_SUITE_P(
    Widths, RingTargetDetectionBoards,
    testing::Values(BoardCase{"Rings320", BoardKind::kSmallRings, 320, 256, 0.1, true, false, false, 0},
                    BoardCase{"Rings321", BoardKind::kSmallRings, 321, 256, 0.1, true, false, false, 0},
                    BoardCase{"Rings640", BoardKind::kSmallRings, 640, 512, 0.15, true, false, false, 0},
                    BoardCase{"Rings2048", BoardKind::kSmallRings, 2048, 900, 0.3, true, false, false, 0},
                    BoardCase{"BigRings640", BoardKind::kBigRings, 640, 512, 0.3, false, true, false, 20},
                    BoardCase{"MixedRings640", BoardKind::kMixedRings, 640, 512, 0.3, true, true, false, 0},
                    BoardCase{"BigDots320", BoardKind::kBigDots, 320, 256, 0.1, false, false, true, 0},
                    BoardCase{"BigDots640", BoardKind::kBigDots, 640, 512, 0.15, false, false, true, 0},
                    BoardCase{"BigDots641", BoardKind::kBigDots, 641, 512, 0.1, false, false, true, 0},
                    BoardCase{"BigDots2047", BoardKind::kBigDots, 2047, 900, 0.1, false, false, true, 0},
                    BoardCase{"BigDots2048", BoardKind::kBigDots, 2048, 1100, 0.3, false, false, true, 0}),
    [](const auto& tested) { return tested.param.name; });

TEST(RingTargetDetectionMiddleRow, ARingBoardFailsWithNeitherRingsNorSolids) {
  for (const int width : {641, 2047}) {
    const View view(BoardKind::kSmallRings, width, 512);
    Detection detection;
    detection.load(view.config());
    detection.detect(view.image());
    EXPECT_FALSE(detection.found);
    EXPECT_EQ(detection.err, "Invalid rings or solidring number at the same size : 0 and 0(should be 4 or 1) \n");
    EXPECT_TRUE(detection.points.empty());
  }
}

TEST(RingTargetDetectionMiddleRow, TheTwoValuedImageStays) {
  const View small(BoardKind::kBigDots, 320, 256);
  const View middle(BoardKind::kBigDots, 800, 640);
  Detection detection;
  detection.load(small.config());
  detection.detect(small.image());
  const cv::Mat before = detection.target.getBinaryImage();
  EXPECT_EQ(before.size(), cv::Size(1280, 1024)) << "of the working scale";
  detection.detect(middle.image());
  EXPECT_TRUE(detection.found);
  EXPECT_EQ(detection.target.getBinaryImage().data, before.data);
}

TEST(RingTargetDetectionMask, ItIsNotResizedAndFailsWhereTheImageIs) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.config());
  EXPECT_THROW(detection.detect(view.image(), cv::Mat(256, 320, CV_8UC1, cv::Scalar(255))), cv::Exception);
}

TEST(RingTargetDetectionMask, OnTheMiddleRowItHidesDots) {
  const View view(BoardKind::kBigDots, 800, 640);
  cv::Mat mask(640, 800, CV_8UC1, cv::Scalar(255));
  const scene::Point2 hidden = view.centreOf(0);
  mask.at<std::uint8_t>(cvRound(hidden.y), cvRound(hidden.x)) = 0;
  Detection detection;
  detection.load(view.config());
  detection.detect(view.image(), mask);
  EXPECT_TRUE(detection.found);
  EXPECT_EQ(detection.points.size(), view.count() - 1);
  for (const auto& point : detection.points) EXPECT_NE(point.id, 0);
}

TEST(RingTargetDetectionRegion, AWholeRegionKeepsAllOnADoubledImageAndAQuarterOnAHalvedOne) {
  const View doubled(BoardKind::kSmallRings, 640, 512);
  Detection small;
  small.load(doubled.config());
  small.target.setDetectionRegion({0, 1, 0, 1});
  small.detect(doubled.image());
  EXPECT_EQ(small.points.size(), doubled.count());

  const View halved(BoardKind::kSmallRings, 2048, 900);
  Detection large;
  large.load(halved.config());
  large.detect(halved.image());
  const RingTarget::Points all = large.points;
  large.target.setDetectionRegion({0, 1, 0, 1});
  large.detect(halved.image());
  EXPECT_EQ(large.points.size(), static_cast<std::size_t>(std::count_if(all.begin(), all.end(), [](const auto& point) {
              return point.x > 0 && point.x < 1024 && point.y > 0 && point.y < 450;
            })));
  EXPECT_GT(large.points.size(), 50U);
  EXPECT_EQ(large.target.identifiedEllipses().size(), large.points.size());
}

TEST(RingTargetDetectionRegion, AnyOtherCountOfValuesClearsIt) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.config());
  // A strip of the working image, which is four times the image.
  detection.target.setDetectionRegion({0.0F, 0.1F, 0.0F, 1.0F});
  detection.detect(view.image());
  EXPECT_GT(detection.points.size(), 0U);
  EXPECT_LT(detection.points.size(), view.count());
  EXPECT_FALSE(detection.target.setDetectionRegion({0.0F, 0.1F, 0.0F}));
  detection.detect(view.image());
  EXPECT_EQ(detection.points.size(), view.count());
}

TEST(RingTargetDetectionIds, FourIdsFilterAndThreeDoNot) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection four;
  four.load(view.configWith("detection_switch: 1\ndetection_id: [3,1,400,100]\n"));
  four.detect(view.image());
  std::vector<std::int32_t> ids;
  for (const auto& point : four.points) ids.push_back(point.id);
  EXPECT_THAT(ids, testing::UnorderedElementsAre(1, 3, 100, 400));
  Detection three;
  three.load(view.configWith("detection_switch: 1\ndetection_id: [3,1,400]\n"));
  three.detect(view.image());
  EXPECT_EQ(three.points.size(), view.count());
}

TEST(RingTargetDetectionBySearch, FindsTheIdsWithoutGrowth) {
  const View view(BoardKind::kBigDots, 640, 512);
  Detection detection;
  detection.load(view.configWith("id_method: 1\n"));
  detection.detect(view.image());
  EXPECT_TRUE(detection.found);
  // The dot of id 0 equals the unset land marks.
  EXPECT_EQ(detection.points.size(), view.count() - 1);
  EXPECT_LT(worstOf(view, detection.points), 0.15);
}

struct TraceCase {
  const char* name;
  BoardKind kind;
  int width, height;
  cv::Size working;
  std::size_t dots, rings, solid_rings, big_dots;
};

class RingTargetDetectionTrace : public testing::TestWithParam<TraceCase> {};

// 21 x 23 marks; the markers take the places of dots.
TEST_P(RingTargetDetectionTrace, OfAFoundBoardCountsItsMarks) {
  const TraceCase& given = GetParam();
  const View view(given.kind, given.width, given.height);
  Detection detection;
  detection.load(view.config());
  detection.detect(view.image());
  const kestrune::DetectionTrace& trace = detection.target.trace();
  EXPECT_EQ(trace.step, DetectionStep::kDone);
  EXPECT_EQ(trace.working_size, given.working);
  EXPECT_EQ(trace.binary.size(), given.working);
  EXPECT_EQ(trace.classes.dots, given.dots);
  EXPECT_EQ(trace.classes.rings, given.rings);
  EXPECT_EQ(trace.classes.solid_rings, given.solid_rings);
  EXPECT_EQ(trace.classes.big_dots, given.big_dots);
  EXPECT_EQ(trace.contours.accepted, trace.ellipses.size());
  EXPECT_GE(trace.contours.traced, trace.ellipses.size());
  EXPECT_EQ(trace.markers.size(), given.rings + given.solid_rings + given.big_dots);
  EXPECT_EQ(trace.numbered, detection.points.size());
  EXPECT_EQ(trace.kept, detection.points.size());
  EXPECT_EQ(trace.fullest_block, 9U);
}

INSTANTIATE_TEST_SUITE_P(
    Boards, RingTargetDetectionTrace,
    testing::Values(TraceCase{"Rings320", BoardKind::kSmallRings, 320, 256, {1280, 1024}, 478, 4, 1, 0},
                    TraceCase{"BigDots640", BoardKind::kBigDots, 640, 512, {1280, 1024}, 479, 0, 0, 4},
                    TraceCase{"BigDots800", BoardKind::kBigDots, 800, 640, {800, 640}, 479, 0, 0, 4},
                    TraceCase{"BigDots2048", BoardKind::kBigDots, 2048, 1100, {1024, 550}, 479, 0, 0, 4}),
    [](const auto& tested) { return tested.param.name; });

TEST(RingTargetDetectionTraceStep, IsTheOneWhereItStopped) {
  const View rings(BoardKind::kSmallRings, 320, 256);
  const View dots(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.detect(dots.image());
  EXPECT_EQ(detection.target.trace().step, DetectionStep::kImage) << "of a target that is not configured";
  detection.load(dots.config());
  const auto stepIn = [&detection](const cv::Mat& image) {
    detection.detect(image);
    return detection.target.trace().step;
  };
  EXPECT_EQ(stepIn(dots.image()), DetectionStep::kDone);
  EXPECT_EQ(stepIn(cv::Mat(256, 320, CV_8UC3)), DetectionStep::kImage);
  EXPECT_TRUE(detection.target.trace().ellipses.empty()) << "not those of the image before";
  EXPECT_THROW(detection.detect(cv::Mat(20, 20, CV_8UC1, cv::Scalar(9))), cv::Exception);
  EXPECT_EQ(detection.target.trace().step, DetectionStep::kImage);
  detection.load(rings.config());
  EXPECT_EQ(stepIn(dots.image()), DetectionStep::kMarkers);
  EXPECT_GT(detection.target.trace().ellipses.size(), 400U);
  detection.load(dots.config());
  detection.target.setDetectionRegion({0.9F, 0.91F, 0.9F, 0.91F});
  EXPECT_EQ(stepIn(dots.image()), DetectionStep::kFilter);
  EXPECT_EQ(detection.target.trace().numbered, dots.count());
  EXPECT_EQ(detection.target.trace().kept, 0U);
}

TEST(RingTargetDetectionTraceStep, WithoutContoursAndEllipsesIsTheirs) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.configWith("bin_method: 3\n"));
  detection.detect(view.image());
  EXPECT_EQ(detection.target.trace().step, DetectionStep::kContours);
  detection.load(view.configWith("min_radius: 1000\n"));
  detection.detect(view.image());
  const kestrune::DetectionTrace& trace = detection.target.trace();
  EXPECT_EQ(trace.step, DetectionStep::kEllipses);
  EXPECT_GT(trace.contours.traced, 0U);
  EXPECT_GT(trace.contours.too_short, 0U);
  EXPECT_EQ(trace.contours.accepted, 0U);
}

// The last thing that a frame needs is the ellipses.
TEST(RingTargetDetectionTraceStep, OfAFrameIsDoneWithTheFirstEllipse) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.config());
  detection.target.detectframework(view.image(), detection.points, detection.unidentified, {});
  EXPECT_EQ(detection.target.trace().step, DetectionStep::kDone);
  EXPECT_EQ(detection.target.trace().kept, detection.points.size());
  detection.target.detectframework(cv::Mat(256, 320, CV_8UC1, cv::Scalar(215)), detection.points,
                                   detection.unidentified, {});
  EXPECT_NE(detection.target.trace().step, DetectionStep::kDone);
}

struct RefusingLimit {
  const char* name;
  const char* line;
};

class RingTargetDetectionLimit : public testing::TestWithParam<RefusingLimit> {};

// No residual is below 1e-9 pixels. Each value alone refuses every contour, so that a limit that did not arrive would
// let the whole board be found.
TEST_P(RingTargetDetectionLimit, ReachesTheDetectorOfABigDotBoard) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.configWith(GetParam().line));
  detection.detect(view.image());
  EXPECT_FALSE(detection.found);
  EXPECT_EQ(detection.err, "Invalid big circles at the same size : 0 and 0(should be 3) \n");
}

INSTANTIATE_TEST_SUITE_P(Keys, RingTargetDetectionLimit,
                         testing::Values(RefusingLimit{"BinMethod", "bin_method: 3\n"},
                                         RefusingLimit{"MinRadius", "min_radius: 1000\n"},
                                         RefusingLimit{"MaxRadius", "max_radius: 0.5\n"},
                                         RefusingLimit{"MaxSigma", "max_sigma: 0.000000001\n"},
                                         RefusingLimit{"MinCircularity", "min_circularity: 5\n"}),
                         [](const auto& tested) { return tested.param.name; });

TEST(RingTargetDetectionLimits, OfARingBoardAreTheDetectorsOwn) {
  const View rings(BoardKind::kSmallRings, 320, 256);
  Detection untouched;
  untouched.load(rings.configWith("max_sigma: 0.000000001\nbin_method: 3\nmin_radius: 1000\nmin_circularity: 5\n"));
  untouched.detect(rings.image());
  EXPECT_TRUE(untouched.found);
}

TEST(RingTargetDetectionLimits, ATileBeyondTheImageReachesTheDetectorOfABigDotBoard) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.configWith("bin_blocksize: 1281\n"));
  EXPECT_THROW(detection.detect(view.image()), cv::Exception) << "of the working width, 1280";
}

TEST(RingTargetDetectionBinaryImage, ThatWasGivenOutNeverChanges) {
  const View first(BoardKind::kBigDots, 320, 256);
  const View second(BoardKind::kBigDots, 320, 256, {-5.0, 8.0, 10.0});
  Detection detection;
  detection.load(first.config());
  detection.detect(first.image());
  const cv::Mat kept = detection.target.getBinaryImage();
  const cv::Mat before = kept.clone();
  detection.detect(second.image());
  EXPECT_EQ(cv::norm(kept, before, cv::NORM_INF), 0.0);
  EXPECT_GT(cv::norm(detection.target.getBinaryImage(), before, cv::NORM_INF), 0.0);
  RingTarget::Points points, unidentified;
  const cv::Mat of_second = detection.target.getBinaryImage();
  const cv::Mat before_second = of_second.clone();
  EXPECT_TRUE(detection.target.detectframework(first.image(), points, unidentified, {}));
  EXPECT_EQ(cv::norm(of_second, before_second, cv::NORM_INF), 0.0);
}

// On the middle row the detector works on the very image that it is given.
TEST(RingTargetDetectionBinaryImage, MayBeTheNextInput) {
  const View view(BoardKind::kBigDots, 800, 640);
  Detection detection;
  detection.load(view.config());
  RingTarget& target = detection.target;
  RingTarget::Points points, points_of_copy, unidentified;
  ASSERT_TRUE(target.detectframework(view.image(), points, unidentified, {}));
  const cv::Mat input = target.getBinaryImage();
  const cv::Mat copy = input.clone();
  ASSERT_TRUE(target.detectframework(input, points, unidentified, {}));
  EXPECT_EQ(cv::norm(input, copy, cv::NORM_INF), 0.0);
  EXPECT_GT(cv::norm(target.getBinaryImage(), copy, cv::NORM_INF), 0.0) << "another image than its input";
  ASSERT_TRUE(target.detectframework(copy, points_of_copy, unidentified, {}));
  ASSERT_EQ(points.size(), points_of_copy.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i].x, points_of_copy[i].x);
    EXPECT_EQ(points[i].y, points_of_copy[i].y);
  }
}

TEST(RingTargetDetectionAgain, EachCallStartsAnew) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.config());
  detection.detect(view.image());
  const std::size_t first = detection.points.size();
  detection.detect(view.image());
  EXPECT_EQ(detection.points.size(), first);
  detection.detect(cv::Mat(256, 320, CV_8UC1, cv::Scalar(200)));
  EXPECT_FALSE(detection.found);
  EXPECT_TRUE(detection.points.empty());
  EXPECT_TRUE(detection.target.identifiedEllipses().empty());
}

struct Roll {
  double degrees;
};

class RingTargetDetectionRolled : public testing::TestWithParam<Roll> {};

TEST_P(RingTargetDetectionRolled, TheNumberingTurnsWithTheBoard) {
  for (const BoardKind kind : {BoardKind::kSmallRings, BoardKind::kBigDots}) {
    const View view(kind, 640, 640, {4.0, -6.0, GetParam().degrees});
    Detection detection;
    detection.load(view.config());
    detection.detect(view.image());
    EXPECT_TRUE(detection.found);
    EXPECT_EQ(detection.points.size(), view.count());
    EXPECT_LT(worstOf(view, detection.points), 0.15);
  }
}

INSTANTIATE_TEST_SUITE_P(Rolls, RingTargetDetectionRolled, testing::Values(Roll{90}, Roll{180}, Roll{270}),
                         [](const auto& tested) {
                           return "By" + std::to_string(static_cast<int>(tested.param.degrees));
                         });

struct FrameworkCase {
  const char* name;
  BoardKind kind;
  int width, height;
};

class RingTargetDetectionFramework : public testing::TestWithParam<FrameworkCase> {};

TEST_P(RingTargetDetectionFramework, GivesEveryEllipseWithoutAnId) {
  const View view(GetParam().kind, GetParam().width, GetParam().height);
  RingTarget target;
  RingTarget::Points points(3), unidentified(2);
  const ConsoleCapture console;
  ASSERT_TRUE(target.loadConfig(view.config()));
  EXPECT_TRUE(target.detectframework(view.image(), points, unidentified, {}));
  EXPECT_TRUE(unidentified.empty());
  EXPECT_TRUE(target.identifiedEllipses().empty());
  ASSERT_GE(points.size(), view.count());
  for (const auto& point : points) EXPECT_EQ(point.id, -1);
  // Each dot has a point near it.
  for (std::size_t id = 0; id < view.count(); ++id) {
    const scene::Point2 truth = view.centreOf(static_cast<std::int32_t>(id));
    EXPECT_TRUE(std::any_of(points.begin(), points.end(), [&](const auto& point) {
      return std::hypot(point.x - truth.x, point.y - truth.y) < 0.5;
    })) << id;
  }
}

INSTANTIATE_TEST_SUITE_P(Table, RingTargetDetectionFramework,
                         testing::Values(FrameworkCase{"Rings320", BoardKind::kSmallRings, 320, 256},
                                         FrameworkCase{"Rings641", BoardKind::kSmallRings, 641, 512},
                                         FrameworkCase{"BigDots640", BoardKind::kBigDots, 640, 512},
                                         FrameworkCase{"BigDots800", BoardKind::kBigDots, 800, 640},
                                         FrameworkCase{"Rings2048", BoardKind::kSmallRings, 2048, 900}),
                         [](const auto& tested) { return tested.param.name; });

TEST(RingTargetDetectionFrameworkMask, OnTheMiddleRowTheDetectorTakesIt) {
  const View view(BoardKind::kBigDots, 800, 640);
  cv::Mat mask(640, 800, CV_8UC1, cv::Scalar(255));
  const scene::Point2 hidden = view.centreOf(0);
  mask.at<std::uint8_t>(cvRound(hidden.y), cvRound(hidden.x)) = 0;
  RingTarget target;
  RingTarget::Points whole, masked, unidentified;
  const ConsoleCapture console;
  target.loadConfig(view.config());
  EXPECT_TRUE(target.detectframework(view.image(), whole, unidentified, {}));
  EXPECT_TRUE(target.detectframework(view.image(), masked, unidentified, mask));
  EXPECT_EQ(masked.size(), whole.size() - 1);
}

TEST(RingTargetDetectionDrawn, NumberedDotsAreRed) {
  const View view(BoardKind::kBigDots, 320, 256);
  Detection detection;
  detection.load(view.config());
  detection.detect(view.image());
  cv::Mat picture;
  detection.target.draw(view.image(), picture, 2.0);
  ASSERT_EQ(picture.size(), cv::Size(640, 512));
  cv::Mat red;
  cv::inRange(picture, cv::Scalar(0, 0, 255), cv::Scalar(0, 0, 255), red);
  EXPECT_GT(cv::countNonZero(red), static_cast<int>(10 * view.count()));
}

}  // namespace
