#include "refine/outline/RadialEdges.h"

#include <gtest/gtest.h>

#include "refine/EllipsePicture.h"

namespace {

refine::RadialEdges edgesOf(const EllipsePicture& drawing, const cv::Point2d& at, double reach) {
  const refine::GreyPicture picture = refine::greyPictureOf(drawing.digitised(1.0, 3));
  return refine::radialEdges(picture, at, cv::Matx22d::eye(), reach);
}

TEST(RadialEdgesFound, OfADotIsItsOutline) {
  EllipsePicture drawing;
  drawing.marks = {{{20.2, 18.1}, 5.0, 5.0}};
  const refine::RadialEdges found = edgesOf(drawing, {20.0, 18.0}, 12.0);
  ASSERT_EQ(found.count, 1u);
  EXPECT_NEAR(found.edges[0].radius, 5.0, 0.15);
  EXPECT_GT(found.edges[0].rise, 60.0);
}

TEST(RadialEdgesFound, OfARingAreBothFromTheInside) {
  EllipsePicture drawing;
  drawing.marks = {{{20.2, 18.1}, 9.0, 9.0, 0.0, 0.6}};
  const refine::RadialEdges found = edgesOf(drawing, {20.0, 18.0}, 14.0);
  ASSERT_EQ(found.count, 2u);
  EXPECT_NEAR(found.edges[0].radius, 5.4, 0.15);
  EXPECT_LT(found.edges[0].rise, 0.0);
  EXPECT_NEAR(found.edges[1].radius, 9.0, 0.15);
}

TEST(RadialEdgesFound, AreNotThoseOfNeighbours) {
  EllipsePicture drawing;
  drawing.marks = {
      {{20.0, 18.0}, 4.0, 4.0}, {{33.0, 18.0}, 4.0, 4.0}, {{7.0, 18.0}, 4.0, 4.0}, {{20.0, 31.0}, 4.0, 4.0}};
  EXPECT_EQ(edgesOf(drawing, {20.0, 18.0}, 13.0).count, 1u);
}

TEST(RadialEdgesFound, AreNoneWithoutRoom) {
  EllipsePicture drawing;
  EXPECT_EQ(edgesOf(drawing, {0.4, 18.0}, 13.0).count, 0u);
}

TEST(RadialEdgesFound, AreInBoardUnitsOfASlantedView) {
  EllipsePicture drawing;
  drawing.marks = {{{20.0, 18.0}, 9.0, 6.0}};
  const refine::GreyPicture picture = refine::greyPictureOf(drawing.digitised(0.0, 3));
  const auto found = refine::radialEdges(picture, {20.0, 18.0}, cv::Matx22d(3.0, 0.0, 0.0, 2.0), 5.0);
  ASSERT_EQ(found.count, 1u);
  EXPECT_NEAR(found.edges[0].radius, 3.0, 0.1);
}

}  // namespace
