#include "MorvenKit/ErrorCategories.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace kestrune::morvenkit;

TEST(ErrorCategories, Names) {
  EXPECT_STREQ(NormalizedErrorCategory::instance().name(), "NormalizedError");
  EXPECT_STREQ(DetectorErrcCategory::instance().name(), "ImageDetector");
}

TEST(ErrorCategories, AreSingletons) {
  EXPECT_EQ(&NormalizedErrorCategory::instance(), &NormalizedErrorCategory::instance());
  EXPECT_EQ(&DetectorErrcCategory::instance(), &DetectorErrcCategory::instance());
}

TEST(ErrorCategories, NobodyElseMakesOne) {
  EXPECT_FALSE(std::is_default_constructible_v<NormalizedErrorCategory>);
  EXPECT_FALSE(std::is_default_constructible_v<DetectorErrcCategory>);
  EXPECT_FALSE(std::is_copy_constructible_v<NormalizedErrorCategory>);
  EXPECT_FALSE(std::is_copy_constructible_v<DetectorErrcCategory>);
}

struct CodeCase {
  int code;
  const char* normalized;
  const char* detector;
  int condition;
};

class ErrorCategoriesCode : public testing::TestWithParam<CodeCase> {};

TEST_P(ErrorCategoriesCode, MessagesAndCondition) {
  const CodeCase& expected = GetParam();
  EXPECT_EQ(NormalizedErrorCategory::instance().message(expected.code), expected.normalized);
  EXPECT_EQ(DetectorErrcCategory::instance().message(expected.code), expected.detector);
  const auto condition = DetectorErrcCategory::instance().default_error_condition(expected.code);
  EXPECT_EQ(condition.value(), expected.condition);
  const std::error_category& category = condition.category();
  if (expected.condition == 0) {
    EXPECT_EQ(category, std::generic_category());
  } else {
    EXPECT_EQ(category, NormalizedErrorCategory::instance());
  }
}

INSTANTIATE_TEST_SUITE_P(Table, ErrorCategoriesCode,
                         testing::Values(CodeCase{1, "wrong variable input to function", "file not accessible", 4},
                                         CodeCase{2, "object uninitialized before using", "file type not supported", 1},
                                         CodeCase{3, "bad configuration", "bad content (format) in file", 5},
                                         CodeCase{4, "input/output error about file", "bad configuration", 3},
                                         CodeCase{5, "bad content (format) in file", "wrong input image format", 1},
                                         CodeCase{6, "internal error", "detector uninitialized before using", 2},
                                         CodeCase{7, "(undefined)", "internal error", 6},
                                         CodeCase{0, "(undefined)", "(undefined)", 0},
                                         CodeCase{8, "(undefined)", "(undefined)", 0},
                                         CodeCase{-1, "(undefined)", "(undefined)", 0}));

TEST(ErrorCategories, NormalizedKeepsTheDefaultMapping) {
  const auto condition = NormalizedErrorCategory::instance().default_error_condition(3);
  EXPECT_EQ(condition.value(), 3);
  EXPECT_EQ(condition.category(), NormalizedErrorCategory::instance());
}

TEST(ErrorCategories, EnumeratorsMakeCodes) {
  const std::error_code code = DetectorErrc::kBadContent;
  EXPECT_EQ(code.value(), 3);
  EXPECT_EQ(code.category(), DetectorErrcCategory::instance());
  EXPECT_EQ(code, std::error_condition(5, NormalizedErrorCategory::instance()));
}
