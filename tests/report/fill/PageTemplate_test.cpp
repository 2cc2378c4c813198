#include "report/fill/PageTemplate.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/Places.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

TEST(PageTemplateOf, IsTheFileByteForByte) {
  EXPECT_EQ(pageTemplate(), TempFolder::contentOf(places::inProject("report/page.html")));
  EXPECT_EQ(fleetTemplate(), TempFolder::contentOf(places::inProject("report/fleet.html")));
}

TEST(PageTemplateMarks, AreThereOnce) {
  for (const std::string_view page : {pageTemplate(), fleetTemplate()}) {
    for (const char* mark : {"@POLARLINE_TITLE@", "@POLARLINE_DATA@", "@POLARLINE_STATIC@"}) {
      const std::size_t at = page.find(mark);
      ASSERT_NE(at, std::string_view::npos) << mark;
      EXPECT_EQ(page.find(mark, at + 1), std::string_view::npos) << mark;
    }
  }
}

}  // namespace
}  // namespace polarline
