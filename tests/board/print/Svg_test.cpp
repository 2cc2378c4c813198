#include "board/print/Svg.h"

#include <gtest/gtest.h>

#include <string>

#include "SvgPicture.h"

namespace {

boards::Sheet smallSheet() {
  boards::Sheet sheet;
  sheet.title = "a <b> & \"c\"";
  sheet.width = 40.0;
  sheet.height = 30.5;
  sheet.discs = {{10.0, 12.25, 3.0, true}, {10.0, 12.25, 1.0 / 3.0, false}};
  sheet.bars = {{1.0, 2.0, 3.0, 0.25}};
  sheet.captions = {{20.0, 28.0, 2.5, "1 < 2"}};
  return sheet;
}

TEST(Svg, IsInMillimetres) {
  const SvgPicture picture(boards::svgOf(smallSheet()));
  EXPECT_EQ(picture.width, 40.0);
  EXPECT_EQ(picture.height, 30.5);
}

TEST(Svg, HoldsEveryPieceInItsOrder) {
  const SvgPicture picture(boards::svgOf(smallSheet()));
  ASSERT_EQ(picture.circles.size(), 2U);
  EXPECT_EQ(picture.circles[0].y, 12.25);
  EXPECT_FALSE(picture.circles[0].white);
  EXPECT_EQ(picture.circles[1].radius, 0.3333);
  EXPECT_TRUE(picture.circles[1].white);
  ASSERT_EQ(picture.rectangles.size(), 1U);
  EXPECT_EQ(picture.rectangles[0].height, 0.25);
  ASSERT_EQ(picture.texts.size(), 1U);
  EXPECT_EQ(picture.texts[0].words, "1 &lt; 2");
  EXPECT_EQ(picture.texts[0].size, 2.5);
}

TEST(Svg, EscapesTheTitle) {
  EXPECT_NE(boards::svgOf(smallSheet()).find("<title>a &lt;b&gt; &amp; \"c\"</title>"), std::string::npos);
}

}  // namespace
