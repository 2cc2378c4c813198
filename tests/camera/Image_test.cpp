#include "camera/Image.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(Image, EmptyGridIsAllZeros) {
  const Image image;
  EXPECT_EQ(image.columns, 0U);
  EXPECT_EQ(image.rows, 0U);
  for (const double value :
       {image.x_max, image.y_max, image.cell_w, image.cell_h, image.third_w, image.third_h, image.x_min, image.y_min}) {
    EXPECT_EQ(value, 0.0);
  }
  for (const auto& list : image.cell_lists) EXPECT_TRUE(list.empty());
}

TEST(Image, DividesTheImageInNormalisedCoordinates) {
  // 1200 x 800 pixels, fx 400, fy 200, centre (400, 300): x from -1 to 2, y from -1.5 to 2.5.
  const Image image(1200, 800, 400, 200, 400, 300, 6, 4);
  EXPECT_EQ(image.x_min, -1.0);
  EXPECT_EQ(image.x_max, 2.0);
  EXPECT_EQ(image.y_min, -1.5);
  EXPECT_EQ(image.y_max, 2.5);
  EXPECT_EQ(image.cell_w, 0.5);
  EXPECT_EQ(image.cell_h, 1.0);
  EXPECT_EQ(image.third_w, 0.5 / 3);
  EXPECT_EQ(image.third_h, 1.0 / 3);
  EXPECT_EQ(image.columns, 6U);
  EXPECT_EQ(image.rows, 4U);
}

TEST(Image, HasAnEmptyEntryForEachCellInEachList) {
  const Image image(1200, 800, 400, 200, 400, 300, 6, 4);
  for (const auto& list : image.cell_lists) {
    ASSERT_EQ(list.size(), 24U);
    for (const auto& entry : list) EXPECT_TRUE(entry.empty());
  }
}

TEST(Image, NoCellsHaveNoFiniteSize) {
  const Image image(1200, 800, 400, 200, 400, 300, 0, 0);
  EXPECT_EQ(image.x_max, 2.0);
  EXPECT_TRUE(std::isinf(image.cell_w));
  EXPECT_TRUE(std::isinf(image.cell_h));
}

}  // namespace
