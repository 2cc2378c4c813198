#include "check/run/RunStatus.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <stdexcept>

#include "PolarLinePrecision/Status.h"

namespace {

using namespace polarline;

struct Case {
  std::int32_t status;
  int exit_code;
};

class RunStatusOf : public testing::TestWithParam<Case> {};

TEST_P(RunStatusOf, HasTheExitCodeOfItsKind) {
  const Status status = statusOf(GetParam().status, "");
  EXPECT_EQ(status.code, GetParam().status);
  EXPECT_EQ(status.exit_code, GetParam().exit_code);
  EXPECT_EQ(status.retry, GetParam().exit_code == 4);
  EXPECT_EQ(status.text.empty(), GetParam().status == 0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RunStatusOf,
                         testing::Values(Case{polar_status::kSuccess, 0}, Case{polar_status::kImages, 2},
                                         Case{polar_status::kPolyTables, 2}, Case{polar_status::kTargetConfig, 2},
                                         Case{polar_status::kResultFolder, 4}, Case{polar_status::kNoResults, 3},
                                         Case{polar_status::kPointMissing, 3}));

TEST(RunStatus, ShowsTheLibrarysOwnTextInBrackets) {
  EXPECT_TRUE(
      statusOf(polar_status::kPolyTables, "Read Poly Params Error!").text.ends_with(" (Read Poly Params Error!)"));
}

TEST(RunStatus, SaysAnExceptionOnOneLine) {
  const cv::Exception error(cv::Error::StsBadArg, "Invalid\n  value", "function", "file.cpp", 7);
  EXPECT_EQ(textOf(error), "Invalid value");
  EXPECT_EQ(textOf(std::runtime_error("a  text")), "a text");
  const char* const beyond = "vector::_M_range_check: __n (which is 209) >= this->size() (which is 200)";
  EXPECT_EQ(textOf(std::out_of_range(beyond)),
            "a dot was numbered 209, and there are 200 true positions (board_gt.txt, in a frame run Frame_3D): compare "
            "them and the target with the board");
  EXPECT_EQ(beyondTable(std::out_of_range(beyond))->place, 209U);
  EXPECT_EQ(beyondTable(std::out_of_range(beyond))->size, 200U);
  EXPECT_FALSE(beyondTable(std::out_of_range("x_y must be 0 or 1")));
}

}  // namespace
