#include "check/picture/DotSize.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "polarline/explain.h"
#include "support/Places.h"
#include "support/TempFolder.h"

namespace {

kestrune::RingTargetConfig boardOf(std::int32_t type) {
  kestrune::RingTargetConfig config;
  config.board_type = type;
  return config;
}

kestrune::DetectionTrace searchedAt(const cv::Size& size) {
  kestrune::DetectionTrace trace;
  trace.working_size = size;
  return trace;
}

struct RangeCase {
  const char* name;
  std::int32_t type;
  cv::Size size, searched;
  double least, most;
};

class DotSizeRange : public testing::TestWithParam<RangeCase> {};

// A circle of radius r has an outline of about 5.66 r pixels. Big dot boards: 30 pixels at least, 425 for a big dot
// of 1.5 radii. Ring boards: 1 pixel for 320 columns, 425 pixels.
TEST_P(DotSizeRange, FollowsFromTheOutlinesAtTheScaleOfTheSearch) {
  const RangeCase& given = GetParam();
  const kestrune::RingTargetConfig config = boardOf(given.type);
  const kestrune::DetectionTrace trace = searchedAt(given.searched);
  const DotRange range = dotRangeOf({config, trace, given.size, CV_8UC1, "", 0.0, 0, false});
  EXPECT_NEAR(range.least, given.least, 0.05);
  EXPECT_NEAR(range.most, given.most, 0.5);
}

INSTANTIATE_TEST_SUITE_P(Widths, DotSizeRange,
                         testing::Values(RangeCase{"BigDots320", 3, {320, 256}, {1280, 1024}, 1.33, 12.5},
                                         RangeCase{"BigDots640", 3, {640, 512}, {1280, 1024}, 2.65, 25},
                                         RangeCase{"BigDots1280", 3, {1280, 800}, {1280, 800}, 5.3, 27},
                                         RangeCase{"BigDots2448", 3, {2448, 2048}, {1224, 1024}, 10.6, 100.2},
                                         RangeCase{"Rings320", 2, {320, 256}, {1280, 1024}, 1.6, 18.8},
                                         RangeCase{"Rings640", 2, {640, 512}, {1280, 1024}, 2.0, 37.6},
                                         RangeCase{"Rings1280", 2, {1280, 800}, {1280, 800}, 0, 0},
                                         RangeCase{"Rings4096", 2, {4096, 3072}, {2048, 1536}, 12.8, 150.3}),
                         [](const auto& tested) { return tested.param.name; });

struct WidthCase {
  std::int32_t type;
  std::vector<int> columns;
  double width;
};

// Of a dot of that width all warnings about its size keep silent.
TEST(DotSizeAdvised, WidthsAreFoundOnEveryPictureTheyAreFor) {
  const std::vector<WidthCase> cases = {{2, {240, 320, 640}, 10.0},   {3, {320, 640}, 10.0},
                                        {3, {641, 1280, 2047}, 13.0}, {2, {2048, 2448}, 20.0},
                                        {3, {2048, 2448}, 25.0},      {2, {4096}, 20.0 * 4096 / 2448}};
  for (const WidthCase& each : cases) {
    for (const int columns : each.columns) {
      const DotRange range = dotRangeOf(boardOf(each.type), columns);
      EXPECT_GE(each.width / 2.0, 1.1 * range.least) << columns << " columns, board type " << each.type;
      EXPECT_LE(each.width / 2.0 * 1.1, range.most) << columns << " columns, board type " << each.type;
    }
  }
}

TEST(DotSizeAdvised, WidthsAreThoseOfThePagesAndOfTheWarning) {
  const std::string guide = TempFolder::contentOf(places::inProject("docs/guide/board.md"));
  EXPECT_THAT(guide, testing::ContainsRegex("up to 640 \\| rings[^|]*\\| 10 pixels \\|"));
  EXPECT_THAT(guide, testing::ContainsRegex("641 to 2047 \\| big dots[^|]*\\| 13 pixels \\|"));
  EXPECT_THAT(guide, testing::ContainsRegex("from 2048 \\| rings[^|]*\\| 20 pixels \\(of `dots` 25\\)"));
  const auto explained = polarline::explain("few_refined");
  ASSERT_TRUE(explained);
  EXPECT_THAT(explained->advice, testing::HasSubstr("about 10 pixels wide in pictures of up to 640 columns, 13 up to "
                                                    "2047, and from 2048 on 20 of rings or 25 of big dots"));
}

// Dots of 0.3 pitches count from a radius of columns / 320 on.
TEST(DotSizeAdvised, PitchOfLargePicturesIsThatOfTheirDots) {
  const std::string page = TempFolder::contentOf(places::inProject("docs/boards.md"));
  for (const int columns : {2048, 2448, 4096}) {
    const double pitch = std::ceil(dotRangeOf(boardOf(2), columns).least / 0.3);
    EXPECT_THAT(page, testing::HasSubstr(fmt::format("{:g} at {}", pitch, columns)));
  }
}

std::vector<std::string> codesOf(double radius) {
  const kestrune::RingTargetConfig config = boardOf(2);
  const kestrune::DetectionTrace trace = searchedAt({2048, 1536});
  std::vector<polarline::Warning> warnings;
  warnOfDotSize({config, trace, {4096, 3072}, CV_8UC1, "", radius, 0, false}, warnings);
  std::vector<std::string> codes;
  for (const auto& warning : warnings) {
    codes.push_back(warning.code);
    EXPECT_THAT(warning.text,
                testing::HasSubstr("in a picture of 4096 columns, searched at 2048 x 1536, dots of 12.8 to "
                                   "150.3 pixels are found"));
  }
  return codes;
}

TEST(DotSize, NearTheEndsOfTheRangeIsWarnedOf) {
  EXPECT_THAT(codesOf(9.5), testing::ElementsAre("dots_too_small"));
  EXPECT_THAT(codesOf(14.0), testing::ElementsAre("dots_too_small")) << "within a tenth";
  EXPECT_THAT(codesOf(14.2), testing::IsEmpty());
  EXPECT_THAT(codesOf(136.0), testing::IsEmpty());
  EXPECT_THAT(codesOf(140.0), testing::ElementsAre("dots_too_large"));
  EXPECT_THAT(codesOf(0.0), testing::IsEmpty()) << "without dots";
}

}  // namespace
