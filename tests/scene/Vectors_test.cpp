#include "tools/scene/Vectors.h"

#include <gtest/gtest.h>

namespace {

using scene::Matrix3;
using scene::Point3;

TEST(Vectors, InverseTimesMatrixIsIdentity) {
  const Matrix3 m{{2, 1, 0, -1, 3, 4, 0.5, 0, 1}};
  const Matrix3 product = scene::inverse(m) * m;
  for (std::size_t k = 0; k < 9; ++k) EXPECT_NEAR(product.values.at(k), Matrix3{}.values.at(k), 1e-15);
}

TEST(Vectors, ProductIsRowTimesColumn) {
  const Matrix3 a{{1, 2, 3, 4, 5, 6, 7, 8, 9}};
  const Matrix3 b{{1, 0, 2, 0, 1, 0, 3, 0, 1}};
  const Matrix3 product = a * b;
  EXPECT_EQ(product.values, (std::array<double, 9>{10, 2, 5, 22, 5, 14, 34, 8, 23}));
}

TEST(Vectors, CrossOfXAndYIsZ) {
  const Point3 z = scene::cross({1, 0, 0}, {0, 1, 0});
  EXPECT_EQ(z.x, 0.0);
  EXPECT_EQ(z.y, 0.0);
  EXPECT_EQ(z.z, 1.0);
}

}  // namespace
