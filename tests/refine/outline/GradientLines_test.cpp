#include "refine/outline/GradientLines.h"

#include <gtest/gtest.h>

#include "refine/EllipsePicture.h"

namespace {

TEST(GradientLinesOutline, IsTheEllipseFromAPlaceHalfAPixelOff) {
  EllipsePicture drawing;
  drawing.marks = {{{20.31, 17.64}, 7.0, 5.5, 0.5}};
  const refine::Outline truth = EllipsePicture::outlineOf(drawing.marks[0]);
  const refine::GreyPicture picture = refine::greyPictureOf(drawing.digitised(0.8, 5));
  const refine::Outline guess{truth.centre + cv::Point2d(0.4, -0.3), 36.0, 0.0, 36.0};
  const auto found = refine::outlineOfGradients(picture, guess, {2.5, 2.5, 1.0});
  ASSERT_TRUE(found);
  EXPECT_NEAR(found->outline.centre.x, truth.centre.x, 0.03);
  EXPECT_NEAR(found->outline.centre.y, truth.centre.y, 0.03);
  EXPECT_NEAR(std::sqrt(found->outline.xx / truth.xx), 1.0, 0.03);
  EXPECT_NEAR(found->blur, 0.757, 0.2);  // with the pixel's own width
}

TEST(GradientLinesOutline, IsNoneOfAnEdgeOfTheOtherSign) {
  EllipsePicture drawing;
  drawing.marks = {{{20.0, 18.0}, 6.0, 6.0}};
  const refine::GreyPicture picture = refine::greyPictureOf(drawing.digitised(0.0, 5));
  EXPECT_FALSE(refine::outlineOfGradients(picture, {{20.0, 18.0}, 36.0, 0.0, 36.0}, {2.5, 2.5, -1.0}));
}

TEST(GradientLinesOutline, IsNoneOnBlankPaper) {
  EllipsePicture drawing;
  const refine::GreyPicture picture = refine::greyPictureOf(drawing.digitised(0.0, 5));
  EXPECT_FALSE(refine::outlineOfGradients(picture, {{20.0, 18.0}, 36.0, 0.0, 36.0}, {2.5, 2.5, 1.0}));
}

}  // namespace
