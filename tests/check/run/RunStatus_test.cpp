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
}

}  // namespace
