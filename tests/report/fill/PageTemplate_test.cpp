#include "report/fill/PageTemplate.h"

#include <gtest/gtest.h>

#include <string>

#include "support/TempFolder.h"

namespace polarline {
namespace {

TEST(PageTemplateOf, IsTheFileByteForByte) { EXPECT_EQ(pageTemplate(), TempFolder::contentOf(PAGE_TEMPLATE)); }

TEST(PageTemplateMarks, AreThereOnce) {
  for (const char* mark : {"@POLARLINE_TITLE@", "@POLARLINE_DATA@", "@POLARLINE_STATIC@"}) {
    const std::size_t at = pageTemplate().find(mark);
    ASSERT_NE(at, std::string_view::npos) << mark;
    EXPECT_EQ(pageTemplate().find(mark, at + 1), std::string_view::npos) << mark;
  }
}

}  // namespace
}  // namespace polarline
