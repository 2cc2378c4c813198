#include "store/work/Course.h"

#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "polarline/exit_code.h"

namespace polarline {
namespace {

TEST(Course, EndsWhenSomebodyWants) {
  BatchOptions options;
  EXPECT_TRUE(Course(options).goesOn({}));
  bool is_wanted = true;
  options.go_on_with_next = [&] { return is_wanted; };
  Course course(options);
  EXPECT_TRUE(course.goesOn({}));
  is_wanted = false;
  EXPECT_FALSE(course.goesOn({}));
  is_wanted = true;  // Who was told to end ends.
  EXPECT_FALSE(course.goesOn({}));
  EXPECT_EQ(course.ended({}).exit_code, kInterrupted);
  options.go_on_with_next = nullptr;
  options.go_on = [] { return false; };
  EXPECT_FALSE(Course(options).goesOn({}));
}

TEST(Course, EndsAfterSoManyFailures) {
  BatchOptions options;
  BatchOutcome outcome;
  outcome.failed = 3;
  outcome.exit_code = kNoFigure;
  EXPECT_TRUE(Course(options).goesOn(outcome));
  options.stop_after = 4;
  EXPECT_TRUE(Course(options).goesOn(outcome));
  options.stop_after = 3;
  Course course(options);
  EXPECT_FALSE(course.goesOn(outcome));
  EXPECT_EQ(course.ended(outcome).exit_code, kNoFigure);
  EXPECT_EQ(course.ended(outcome, false).exit_code, kInterrupted);
}

TEST(Course, WaitsNoLongerThanItGoesOn) {
  BatchOptions options;
  int asked = 0;
  options.go_on = [&] { return ++asked < 3; };
  const auto begin = std::chrono::steady_clock::now();
  Course(options).wait({}, std::chrono::hours(1));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
}

TEST(Course, LeavesOpenCvOneThread) {
  const int before = cv::getNumThreads();
  {
    const OneThread one;
    EXPECT_EQ(cv::getNumThreads(), 1);
  }
  EXPECT_EQ(cv::getNumThreads(), before);
}

TEST(Course, NeedsOptionsThatCanBeUsed) {
  BatchOptions options;
  EXPECT_THROW(demandUsable(options), InputError);
  options.store = "s";
  options.check.settings = {"f_scale=1"};
  EXPECT_NO_THROW(demandUsable(options));
  const auto refused = [&](auto change) {
    BatchOptions changed = options;
    change(changed);
    EXPECT_THROW(demandUsable(changed), InputError);
  };
  refused([](BatchOptions& each) { each.check.limits = {"dy_maens<=1"}; });
  refused([](BatchOptions& each) { each.check.settings = {"f_scale"}; });
  refused([](BatchOptions& each) { each.check.settings = {"f_scla=1"}; });
  refused([](BatchOptions& each) { each.claim_timeout = 0.0; });
}

}  // namespace
}  // namespace polarline
