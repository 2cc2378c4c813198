#include "report/measure/Course.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace polarline {
namespace {

/// Two dots at each whole place from 0 to 24, half a unit above and below a line.
TEST(CourseOf, FollowsALine) {
  std::vector<double> places;
  std::vector<double> values;
  for (int k = 0; k <= 24; ++k) {
    for (const double off : {-0.5, 0.5}) {
      places.push_back(k);
      values.push_back(3.0 - 0.25 * k + off);
    }
  }
  const auto course = courseOf(places, values);
  ASSERT_TRUE(course);
  EXPECT_NEAR(course->slope, -0.25, 1e-12);
  EXPECT_NEAR(course->intercept, 3.0, 1e-12);
  ASSERT_EQ(course->at.size(), 12U);
  EXPECT_NEAR(course->at[0], 1.0, 1e-12);
  EXPECT_NEAR(course->at[11], 23.0, 1e-12);
  EXPECT_EQ(course->count[0], 4U) << "places 0 and 1";
  EXPECT_EQ(course->count[11], 6U) << "places 22, 23 and the end itself";
  EXPECT_EQ(std::accumulate(course->count.begin(), course->count.end(), std::size_t{0}), 50U);
  EXPECT_NEAR(course->mean[0], 3.0 - 0.125, 1e-12);
  EXPECT_NEAR(course->sd[0], std::sqrt((4 * 0.25 + 4 * 0.125 * 0.125) / 3.0), 1e-12);
}

TEST(CourseStripes, ThatAreEmptyAreLeftOut) {
  const auto course = courseOf({0.0, 12.0, NAN, 5.0}, {1.0, 2.0, 3.0, NAN});
  ASSERT_TRUE(course);
  EXPECT_EQ(course->at, (std::vector<double>{0.5, 11.5}));
  EXPECT_TRUE(std::isnan(course->sd[0]));
}

TEST(CourseOf, NeedsTwoPlaces) {
  EXPECT_FALSE(courseOf({}, {}));
  EXPECT_FALSE(courseOf({1.0}, {1.0}));
  EXPECT_FALSE(courseOf({1.0, 1.0}, {1.0, 2.0}));
  EXPECT_FALSE(courseOf({-1e308, 1e308}, {1.0, 2.0})) << "beyond what numbers hold";
}

}  // namespace
}  // namespace polarline
