#include <gtest/gtest.h>

#include <filesystem>

#include "polarline/report.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

struct Way {
  const char* page;
  const char* folder;
  const char* url;
};

class UrlFromPageOf : public ::testing::TestWithParam<Way> {};

TEST_P(UrlFromPageOf, IsTheWayBetweenThem) {
  const TempFolder folder;
  const auto& [page, pages, url] = GetParam();
  EXPECT_EQ(urlFromPage(folder.file(page), folder.file(pages)), url);
}

INSTANTIATE_TEST_SUITE_P(Ways, UrlFromPageOf,
                         ::testing::Values(Way{"fleet.html", "pages", "pages"}, Way{"fleet.html", "pages/", "pages"},
                                           Way{"out/fleet.html", "pages", "../pages"},
                                           Way{"out/../fleet.html", "./a/b", "a/b"}, Way{"fleet.html", ".", "."},
                                           Way{"fleet.html", "my pages#1", "my%20pages%231"},
                                           Way{"fleet.html", "J\u00fcrgen:x", "J%C3%BCrgen%3Ax"}));

TEST(UrlFromPageStandardOutput, CountsAsTheCurrentFolder) {
  EXPECT_EQ(urlFromPage("-", "pages"), "pages");
  EXPECT_EQ(urlFromPage("fleet.html", "pages"), "pages");
}

}  // namespace
}  // namespace polarline
