#include "polarline/refine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "polarline/errors.h"
#include "support/RenderedSet.h"

namespace polarline {
namespace {

/// The first left picture of a rendered set.
struct RefinePicture : ::testing::Test {
  const RenderedSet& set = RenderedSet::of("ring_320");
  cv::Mat image = readPicture(set.file("left_0.png"));
  std::string target = set.file("target.ini");
  Detection detection = detect(image, target);
  Camera camera = importCalibration({set.file("calib.json")}, {}).calibration.left;
};

TEST_F(RefinePicture, ComesSeveralTimesNearerToTheTruth) {
  const scene::PairTruth truth = scene::pairTruth(set.scene(), 0);
  const auto refined = refine(image, detection, target, camera, 1);
  ASSERT_EQ(refined.size(), detection.dots.size());
  double before = 0.0;
  double after = 0.0;
  for (std::size_t k = 0; k < refined.size(); ++k) {
    ASSERT_EQ(refined[k].id, detection.dots[k].id);
    if (refined[k].state != DotState::kRefined) continue;
    const scene::Point2& wanted = truth.dots.at(static_cast<std::size_t>(refined[k].id)).pixel_left;
    before += std::hypot(detection.dots[k].x - wanted.x, detection.dots[k].y - wanted.y);
    after += std::hypot(refined[k].x - wanted.x, refined[k].y - wanted.y);
  }
  EXPECT_GT(before, 0.0);
  EXPECT_LT(after, before / 2.0);
}

TEST_F(RefinePicture, PrintsNothing) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  refine(image, detection, target, camera, 1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(RefinePicture, RefusesAnotherPictureLensOrBoard) {
  EXPECT_THROW(refine(image.rowRange(1, 100), detection, target, camera, 1), InputError);
  EXPECT_THROW(refine({}, detection, target, camera, 1), InputError);
  EXPECT_THROW(refine(image, detection, target, camera, 3), InputError);
  EXPECT_THROW(refine(image, detection, target, camera, -1), InputError);
  EXPECT_THROW(refine(image, detection, set.file("no_target.ini"), camera, 1), InputError);
}

}  // namespace
}  // namespace polarline
