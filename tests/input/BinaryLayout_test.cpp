#include "input/BinaryLayout.h"

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(BinaryLayoutFindParameterField, KnowsFourExactNames) {
  for (const char* name : {"Brown", "KB", "DS", "MEI"}) ASSERT_NE(findParameterField(name), nullptr) << name;
  for (const char* name : {"brown", "BROWN", "kb", "", "Brown ", "Mei"})
    EXPECT_EQ(findParameterField(name), nullptr) << name;
}

struct SizeCase {
  std::size_t cameras;
  std::set<std::size_t> sizes;
};

class BinaryLayoutKnownFileSize : public testing::TestWithParam<SizeCase> {};

TEST_P(BinaryLayoutKnownFileSize, IsExactlyOneOfTheList) {
  for (std::size_t size = 0; size < 7000; ++size) {
    EXPECT_EQ(isKnownFileSize(GetParam().cameras, size), GetParam().sizes.contains(size)) << size;
  }
}

INSTANTIATE_TEST_SUITE_P(Cameras, BinaryLayoutKnownFileSize,
                         testing::Values(SizeCase{0, {}}, SizeCase{1, {2205, 2189, 2181, 2197}},
                                         SizeCase{2, {4383, 4367, 4359, 4375, 4351, 4343, 4335}},
                                         SizeCase{3, {6585, 6569, 6561, 6577}}, SizeCase{4, {}}));

}  // namespace
