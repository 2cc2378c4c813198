#include "report/measure/CausePattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "MadeDocument.h"

namespace polarline {
namespace {

CausePattern patternOf(const Check& check) {
  const Json document = made_document::json(check);
  return {document, knownCameras(document)};
}

Check withCause(const char* name, double value) {
  Check check = made_document::check();
  check.diagnosis.emplace();
  check.diagnosis->causes = {{name, value, 0.0, "", 1.0, "text", 0}};
  return check;
}

/// The right picture's principal point is lower than the calibration says, so the right rows are larger: left less
/// right is less by as much.
TEST(CausePatternOf, ARowOffsetIsTheSameEverywhere) {
  for (const double row : patternOf(withCause("row_offset", 0.5)).of(made_document::dots()))
    EXPECT_NEAR(row, -0.5, 1e-9);
}

/// A right camera that is turned about its axis by a small angle sees rows change by that angle times the column.
TEST(CausePatternOf, ARollGoesWithTheColumn) {
  const DotLists dots = made_document::dots();
  const double degrees = 0.1;
  const std::vector<double> rows = patternOf(withCause("rotation_z", degrees)).of(dots);
  ASSERT_EQ(rows.size(), dots.id.size());
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const double column = dots.right_x[k] - 20.0;
    EXPECT_NEAR(rows[k], -degrees * std::numbers::pi / 180.0 * column, 2e-4) << dots.id[k];
  }
}

TEST(CausePatternCropped, CountsFromTheWholePicturesCorner) {
  Check check = withCause("rotation_z", 0.1);
  const std::vector<double> whole = patternOf(check).of(made_document::dots());
  check.settings = {{"f_scale", "1"}, {"crop", "1"}, {"cropped_cols", "30"}, {"cropped_rows", "20"}};
  DotLists dots = made_document::dots();
  for (auto* list : {&dots.left_x, &dots.left_y, &dots.right_x, &dots.right_y}) {
    for (double& pixel : *list) pixel -= 5.0;
  }
  const std::vector<double> cropped = patternOf(check).of(dots);
  ASSERT_EQ(cropped.size(), whole.size());
  for (std::size_t k = 0; k < whole.size(); ++k) EXPECT_NEAR(cropped[k], whole[k], 1e-12);
}

TEST(CausePatternUnknown, SaysWhy) {
  EXPECT_EQ(patternOf(made_document::check()).whyUnknown(), "") << "no cause is told";
  Check check = withCause("row_offset", 0.5);
  EXPECT_EQ(patternOf(check).whyUnknown(), "");
  check.cameras.model = "poly";
  EXPECT_THAT(patternOf(check).whyUnknown(), ::testing::HasSubstr("calibration is not where it was"));
  check = withCause("row_offset", 0.5);
  check.settings = {{"x_y", "1"}};
  EXPECT_THAT(patternOf(check).whyUnknown(), ::testing::HasSubstr("turned"));
}

TEST(CausePatternNone, WhereNothingOrTooLittleIsKnown) {
  const DotLists dots = made_document::dots();
  const auto isNone = [&](const Check& check) { return patternOf(check).of(dots).empty(); };
  EXPECT_TRUE(isNone(made_document::check()));
  Check check = withCause("row_offset", 0.5);
  EXPECT_FALSE(isNone(check));
  check.cameras.model = "poly";
  EXPECT_TRUE(isNone(check)) << "its tables are not in the document";
  check = withCause("row_offset", 0.5);
  check.settings = {{"x_y", "1"}};
  EXPECT_TRUE(isNone(check));
  check = withCause("row_offset", 0.5);
  check.cameras.extrinsics.clear();
  EXPECT_TRUE(isNone(check));
  check = withCause("row_offset", 0.5);
  check.cameras.left.fx = NAN;
  EXPECT_TRUE(isNone(check));
  check = withCause("row_offset", NAN);
  EXPECT_TRUE(isNone(check));
  check = withCause("row_offset", 0.5);
  check.cameras.extrinsics = {0, 0, 0, 0, 0, 0};
  EXPECT_TRUE(isNone(check)) << "two cameras at one place have no rectification";
  EXPECT_TRUE(patternOf(withCause("row_offset", 0.5)).of(DotLists()).empty());
}

}  // namespace
}  // namespace polarline
