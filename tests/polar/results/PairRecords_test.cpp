#include "polar/results/PairRecords.h"

#include <gtest/gtest.h>

namespace {

const std::vector<CloudPoint> kCloud = {{3, 0, 0, 1, 2, 3}, {5, 0, 0, 4, 5, 6}, {5, 0, 0, 7, 8, 9}};

TEST(PairRecords, FindsTheFirstOfEqualIds) { EXPECT_EQ(cloudPosition(kCloud, 5), cv::Point3f(4, 5, 6)); }

TEST(PairRecords, AMissingIdIsTheOrigin) { EXPECT_EQ(cloudPosition(kCloud, 4), cv::Point3f(0, 0, 0)); }

}  // namespace
