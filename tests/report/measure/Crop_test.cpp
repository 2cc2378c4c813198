#include "report/measure/Crop.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

struct Cropped {
  const char* crop;
  const char* columns;
  const char* rows;
  cv::Rect part;
};

class CropOf : public ::testing::TestWithParam<Cropped> {};

TEST_P(CropOf, IsTheMiddleOrTheWhole) {
  Check check = made_document::check();
  check.settings = {{"crop", GetParam().crop}, {"cropped_cols", GetParam().columns}, {"cropped_rows", GetParam().rows}};
  EXPECT_EQ(partLookedAt(made_document::json(check)), GetParam().part);
}

const cv::Rect kWhole(0, 0, 40, 30);

INSTANTIATE_TEST_SUITE_P(All, CropOf,
                         ::testing::Values(Cropped{"0", "20", "10", kWhole}, Cropped{"1", "20", "10", {10, 10, 20, 10}},
                                           Cropped{"1", "40", "30", kWhole}, Cropped{"1", "41", "10", kWhole},
                                           Cropped{"1", "20", "31", kWhole}, Cropped{"1", "0", "10", kWhole},
                                           Cropped{"1", "1e300", "10", kWhole}, Cropped{"1", "-5", "10", kWhole},
                                           Cropped{"1", "true", "10", kWhole},
                                           Cropped{"1", "21", "11", {9, 9, 21, 11}}));

}  // namespace
}  // namespace polarline
