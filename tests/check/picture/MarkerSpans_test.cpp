#include "check/picture/MarkerSpans.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "BoardPicture.h"

namespace {

using polarline::Detection;
using scene::BoardKind;
using testing::HasSubstr;
using testing::Not;

struct Kind {
  const char* name;
  BoardKind kind;
  int columns;  ///< Of the markers' rectangle in `BoardPicture`.
  int rows;
};

std::string withSpan(std::string target, int columns, int rows) {
  for (const auto& [key, value] : {std::pair<std::string, int>{"inner_width: ", columns}, {"inner_height: ", rows}}) {
    const std::size_t begin = target.find(key) + key.size();
    target.replace(begin, target.find('\n', begin) - begin, std::to_string(value));
  }
  return target;
}

bool warnsOf(const Detection& detection, const char* code) {
  return std::ranges::count(detection.warnings, code, &polarline::Warning::code) != 0;
}

class MarkerSpans : public testing::TestWithParam<Kind> {};

TEST_P(MarkerSpans, OfTheRightBoardAreNotToldOf) {
  const BoardPicture picture(GetParam().kind, 640, 512);
  const Detection detection = polarline::detect(picture.image(), picture.target());
  EXPECT_TRUE(detection.found);
  EXPECT_TRUE(detection.warnings.empty());
}

TEST_P(MarkerSpans, OfAnotherTargetAreNamedByWhatThePictureHas) {
  const BoardPicture picture(GetParam().kind, 640, 512);
  const auto [name, kind, columns, rows] = GetParam();
  for (const auto& [wrong_columns, wrong_rows] :
       {std::pair{columns + 2, rows}, {columns - 2, rows}, {columns, rows + 2}, {columns + 2, rows + 2}}) {
    const Detection detection =
        polarline::detect(picture.image(), withSpan(picture.target(), wrong_columns, wrong_rows));
    std::string told = detection.text;
    for (const polarline::Warning& each : detection.warnings) told += "\n" + each.text;
    EXPECT_THAT(told, HasSubstr("span " + std::to_string(columns) + " columns and " + std::to_string(rows) + " rows"))
        << wrong_columns << " x " << wrong_rows;
    EXPECT_THAT(told, HasSubstr("span " + std::to_string(wrong_columns) + " and " + std::to_string(wrong_rows)));
    EXPECT_THAT(told, HasSubstr(fmt::format("(inner={}x{})", columns, rows)));
    EXPECT_THAT(told, Not(HasSubstr("exchanged")));
    EXPECT_EQ(warnsOf(detection, "marker_span"), detection.found);
  }
}

TEST_P(MarkerSpans, OfAMirroredPictureAreTheSameAndItIsToldOf) {
  const BoardPicture picture(GetParam().kind, 640, 512);
  for (const int way : {0, 1}) {
    cv::Mat mirrored;
    cv::flip(picture.image(), mirrored, way);
    const Detection detection = polarline::detect(mirrored, picture.target());
    EXPECT_TRUE(warnsOf(detection, "mirrored_board"));
    EXPECT_FALSE(warnsOf(detection, "marker_span"));
  }
  cv::Mat turned;
  cv::flip(picture.image(), turned, -1);  // By a half: no mirror.
  EXPECT_FALSE(warnsOf(polarline::detect(turned, picture.target()), "mirrored_board"));
}

INSTANTIATE_TEST_SUITE_P(Boards, MarkerSpans,
                         testing::Values(Kind{"Rings", BoardKind::kSmallRings, 9, 7},
                                         Kind{"BigDots", BoardKind::kBigDots, 5, 5}),
                         [](const auto& tested) { return tested.param.name; });

TEST(MarkerSpansThatAreExchanged, AreCalledSo) {
  const BoardPicture picture(BoardKind::kSmallRings, 640, 512);
  const Detection detection = polarline::detect(picture.image(), withSpan(picture.target(), 7, 9));
  std::string told = detection.text;
  for (const polarline::Warning& each : detection.warnings) told += "\n" + each.text;
  EXPECT_THAT(told, HasSubstr("span 9 columns and 7 rows (inner=9x7)"));
  EXPECT_THAT(told, HasSubstr("span 7 and 9: columns and rows are exchanged"));
}

TEST(MarkerSpansOfBigRings, AreNotGuessed) {
  const BoardPicture picture(BoardKind::kBigRings, 640, 512);
  const Detection detection = polarline::detect(picture.image(), withSpan(picture.target(), 11, 7));
  EXPECT_TRUE(detection.found);
  EXPECT_FALSE(warnsOf(detection, "marker_span"));
}

}  // namespace
