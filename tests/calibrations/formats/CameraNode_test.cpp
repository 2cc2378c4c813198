#include "calibrations/formats/CameraNode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calibrations/document/YamlText.h"
#include "polarline/errors.h"

namespace {

using calibrations::Document;
using calibrations::Node;
using calibrations::SourceCamera;
using testing::ElementsAre;

const Document kDocument{"file", calibrations::Syntax::kYaml, calibrations::valuesOfYaml("a: 1", "file").front()};
const Node kNode(kDocument);

std::vector<double> counted(std::size_t count, std::size_t kept = 14) {
  std::vector<double> values(count, 0.0);
  for (std::size_t k = 0; k < std::min(count, kept); ++k) values[k] = static_cast<double>(k + 1);
  return values;
}

TEST(CameraNodeBrown, IsInTheOrderOfOpenCv) {
  for (const std::size_t count : {8U, 12U, 14U}) {
    SourceCamera source;
    calibrations::setBrown(source, counted(count, 8), kNode);
    EXPECT_THAT(source.camera.k, ElementsAre(1, 2, 5, 6, 7, 8)) << count;
    EXPECT_EQ(source.camera.p1, 3);
    EXPECT_EQ(source.camera.p2, 4);
    EXPECT_EQ(source.lens, calibrations::Lens::kBrown);
  }
}

TEST(CameraNodeBrown, MayBeShort) {
  SourceCamera source;
  calibrations::setBrown(source, counted(5), kNode);
  EXPECT_THAT(source.camera.k, ElementsAre(1, 2, 5, 0, 0, 0));
  calibrations::setBrown(source, counted(4), kNode);
  EXPECT_THAT(source.camera.k, ElementsAre(1, 2, 0, 0, 0, 0));
  calibrations::setBrown(source, {}, kNode);
  EXPECT_THAT(source.camera.k, ElementsAre(0, 0, 0, 0, 0, 0));
  EXPECT_EQ(source.camera.p1, 0);
}

TEST(CameraNodeBrown, IsRefusedInOtherCountsAndWithOtherTerms) {
  for (const std::size_t count : {1U, 2U, 3U, 6U, 7U, 9U, 11U, 13U, 15U}) {
    SourceCamera source;
    EXPECT_THROW(calibrations::setBrown(source, counted(count, 0), kNode), polarline::InputError) << count;
  }
  for (std::size_t other = 8; other < 14; ++other) {
    SourceCamera source;
    std::vector<double> values(14, 0.0);
    values[other] = -1e-12;
    EXPECT_THROW(calibrations::setBrown(source, values, kNode), polarline::InputError) << other;
  }
}

TEST(CameraNodeFisheye, HasFour) {
  SourceCamera source;
  calibrations::setFisheye(source, counted(4), kNode);
  EXPECT_THAT(source.camera.k, ElementsAre(1, 2, 3, 4, 0, 0));
  EXPECT_EQ(source.lens, calibrations::Lens::kFisheye);
  EXPECT_THROW(calibrations::setFisheye(source, counted(3), kNode), polarline::InputError);
  EXPECT_THROW(calibrations::setFisheye(source, counted(5), kNode), polarline::InputError);
}

TEST(CameraNodePinhole, HasFocalLengthsFirst) {
  polarline::Camera camera;
  calibrations::setPinhole(camera, {500, 501, -3, 240}, kNode);
  EXPECT_EQ(camera.fx, 500);
  EXPECT_EQ(camera.fy, 501);
  EXPECT_EQ(camera.cx, -3);
  EXPECT_EQ(camera.cy, 240);
  EXPECT_THROW(calibrations::setPinhole(camera, {500, 0.0009, 0, 0}, kNode), polarline::InputError);
  EXPECT_THROW(calibrations::setPinhole(camera, {-500, 500, 0, 0}, kNode), polarline::InputError);
}

TEST(CameraNodeSize, IsNotKnownWithASideOfNought) {
  EXPECT_EQ(calibrations::sizeOf(0, 480, kNode).height, 0);
  EXPECT_EQ(calibrations::sizeOf(640, 0, kNode).width, 0);
  EXPECT_EQ(calibrations::sizeOf(65535, 1, kNode).width, 65535);
  EXPECT_THROW(calibrations::sizeOf(65536, 1, kNode), polarline::InputError);
  EXPECT_THROW(calibrations::sizeOf(-1, 1, kNode), polarline::InputError);
  EXPECT_THROW(calibrations::sizeOf(640, 479.5, kNode), polarline::InputError);
}

}  // namespace
