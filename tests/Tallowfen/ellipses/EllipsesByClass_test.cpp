#include "Tallowfen/src/ellipses/EllipsesByClass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "HandMadeEllipses.h"

namespace {

using handmade::centres;
using handmade::ellipse;
using handmade::List;
using kestrune::EllipsesByClass;
using kestrune::sortByClass;
using testing::ElementsAre;
using testing::IsEmpty;

const cv::Mat kNoMask;

TEST(EllipsesByClass, EachClassGetsItsListInTheDetectorsOrder) {
  const List all = {ellipse(1, 0, 5, 4), ellipse(2, 0, 5, 0), ellipse(3, 0, 5, 1),   ellipse(4, 0, 5, 254),
                    ellipse(5, 0, 5, 6), ellipse(6, 0, 5, 0), ellipse(7, 0, 5, 255), ellipse(8, 0, 5, 3),
                    ellipse(9, 0, 5, 2), ellipse(10, 0, 5, 5)};
  const EllipsesByClass lists = sortByClass(all, kNoMask);
  EXPECT_THAT(centres(lists.dots), ElementsAre(std::pair(2.0, 0.0), std::pair(6.0, 0.0)));
  EXPECT_THAT(centres(lists.rings), ElementsAre(std::pair(3.0, 0.0)));
  EXPECT_THAT(centres(lists.solids), ElementsAre(std::pair(1.0, 0.0)));
  EXPECT_THAT(centres(lists.bigs), ElementsAre(std::pair(5.0, 0.0)));
  EXPECT_THAT(centres(lists.unknowns), ElementsAre(std::pair(4.0, 0.0)));
}

TEST(EllipsesByClass, MaskIsReadAtTheNearestPixel) {
  cv::Mat mask(10, 10, CV_8UC1, cv::Scalar(255));
  mask.at<std::uint8_t>(3, 7) = 0;
  const List all = {ellipse(6.5, 2.5, 1), ellipse(7.4375, 3.4375, 1), ellipse(7.5, 3, 1), ellipse(7, 3.5, 1),
                    ellipse(6.4375, 3, 1)};
  EXPECT_THAT(centres(sortByClass(all, mask).dots),
              ElementsAre(std::pair(7.5, 3.0), std::pair(7.0, 3.5), std::pair(6.4375, 3.0)));
}

TEST(EllipsesByClass, CentresOutsideTheMaskAreDropped) {
  const cv::Mat mask(10, 10, CV_8UC1, cv::Scalar(1));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const List all = {ellipse(-1.5, 5, 1), ellipse(9.5, 5, 1), ellipse(5, -2, 1), ellipse(5, 1e300, 1),
                    ellipse(nan, 5, 1)};
  EXPECT_THAT(sortByClass(all, mask).dots, IsEmpty());
}

TEST(EllipsesByClass, CuttingTakesTheHalfPixelLeftOfTheImageToItsFirstColumn) {
  const cv::Mat mask(10, 10, CV_8UC1, cv::Scalar(1));
  EXPECT_EQ(sortByClass({ellipse(-1.4375, 9.4375, 1)}, mask).dots.size(), 1U);
}

}  // namespace
