#include "check/explain/FigureEntries.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <regex>

#include "polarline/check.h"
#include "support/Places.h"
#include "support/RenderedSet.h"

namespace polarline {
namespace {

/// The set that the explanations speak of.
const Check& checkOfTheSet() {
  static const Check check = [] {
    Set set;
    set.folder = std::filesystem::path(RenderedSet::of("big_1280").file("list.txt")).parent_path().string();
    CheckOptions options;
    options.diagnose = false;
    return polarline::check(set, options);
  }();
  return check;
}

/// The figure of each pair, of a list the entry farthest from 0.
std::vector<double> sizesOf(const std::string& name) {
  std::vector<double> sizes;
  for (const PairCheck& pair : checkOfTheSet().pairs) {
    const Figure* const figure = pair.figure(name);
    if (figure == nullptr || figure->values.empty()) continue;
    sizes.push_back(std::abs(std::ranges::max(figure->values, {}, [](double value) { return std::abs(value); })));
  }
  return sizes;
}

/// As many decimals as a text has.
std::string withDecimalsOf(const std::string& text, double value) {
  const std::size_t point = text.find('.');
  return fmt::format("{:.{}f}", value, point == std::string::npos ? 0 : text.size() - point - 1);
}

/// The page's own list, which a figure without a title would reach by its bare name.
TEST(FigureEntries, EachHasATitleOnThePage) {
  std::ifstream source(places::inProject("report/web/src/text/figures.ts"));
  const std::string titles{std::istreambuf_iterator<char>(source), {}};
  ASSERT_NE(titles.find("const titles: Record<string, string> = {"), std::string::npos);
  std::size_t figures = 0;
  for (const Explanation& each : figureExplanations()) {
    EXPECT_NE(titles.find("\n  " + each.name + ": '"), std::string::npos) << each.name;
    ++figures;
  }
  EXPECT_GE(figures, 25U);
}

TEST(FigureEntries, QuoteWhatTheRenderedSetHas) {
  ASSERT_EQ(checkOfTheSet().finished(), 3U);
  const std::regex quoted(R"(exact calibration (\d[\d.]*)(?: to (\d[\d.]*))? is left on the rendered set big_1280)");
  int quotes = 0;
  for (const Explanation& each : figureExplanations()) {
    std::smatch words;
    if (!std::regex_search(each.advice, words, quoted)) continue;
    ++quotes;
    const std::vector<double> sizes = sizesOf(each.name);
    ASSERT_EQ(sizes.size(), 3U) << each.name;
    const auto [least, most] = std::ranges::minmax(sizes);
    EXPECT_EQ(withDecimalsOf(words[1], least), words[1]) << each.name;
    const std::string last = words[words[2].matched ? 2 : 1];
    EXPECT_EQ(withDecimalsOf(last, most), last) << each.name;
  }
  EXPECT_EQ(quotes, 18);
}

/// Of 16 rows of 26 dots 15 ways lead back over 25 steps of 20, among 415 spacings along rows and 390 along columns.
TEST(FigureEntries, CallNothingPerfectThatCanNotBeReached) {
  for (const Explanation& each : figureExplanations()) {
    const bool is_across = each.name == "allpoints_means" || each.name == "allpoint_max";
    EXPECT_EQ(each.advice.find("so 0 can't be reached") != std::string::npos, is_across) << each.name;
    const bool has_best = each.name != "zero_dis" && each.name != "PoseReport" && !is_across;
    EXPECT_EQ(each.advice.find("0 is perfect") != std::string::npos, has_best) << each.name;
  }
  const std::vector<double> means = sizesOf("allpoints_means");
  EXPECT_NEAR(means.at(0), 15.0 * (std::hypot(25.0 * 20.0, 20.0) - 20.0) / (415.0 + 390.0), 0.5) << "and noise";
}

TEST(FigureEntries, KnowWhichFiguresHaveASign) {
  EXPECT_TRUE(hasSign("tri_dis"));
  EXPECT_FALSE(hasSign("dy_means"));
}

}  // namespace
}  // namespace polarline
