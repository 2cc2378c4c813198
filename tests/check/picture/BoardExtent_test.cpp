#include "check/picture/BoardExtent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "polarline/board.h"
#include "support/RenderedSet.h"

namespace {

using polarline::BoardExtent;
using polarline::Detection;
using polarline::shownBoard;
using polarline::sizeProblem;

/// A whole board of the true size under the numbers that a target of the described size gives it: the markers, and with
/// them the middles of both, coincide, and of two dots of one number the second has none. Seen aslant and through a
/// lens that bends.
Detection numbered(const BoardExtent& described, const BoardExtent& shown) {
  Detection detection;
  detection.board.columns = described.columns;
  detection.board.rows = described.rows;
  const int first_column = (described.columns - shown.columns) / 2;
  const int first_row = (described.rows - shown.rows) / 2;
  std::set<int> ids;
  for (int row = 0; row < shown.rows; ++row) {
    for (int column = 0; column < shown.columns; ++column) {
      const cv::Point2d place(column - 0.5 * (shown.columns - 1), row - 0.5 * (shown.rows - 1));
      const double w = 1.0 + 0.01 * place.x - 0.005 * place.y + 0.0005 * place.dot(place);
      const cv::Point2d dot = cv::Point2d(400.0, 300.0) + 20.0 / w * (place + cv::Point2d(0.1 * place.y, 0.0));
      const int id = (first_row + row) * described.columns + first_column + column;
      detection.ellipses.push_back({dot.x, dot.y, 6.0, 6.0, 0.0, "dot", false});
      if (ids.insert(id).second)
        detection.dots.push_back({id, id / described.columns, id % described.columns, dot.x, dot.y});
    }
  }
  return detection;
}

struct Case {
  BoardExtent described;
  BoardExtent shown;
  const char* problem;
};

class BoardExtentOf : public testing::TestWithParam<Case> {};

TEST_P(BoardExtentOf, IsCountedWhateverTheTargetSays) {
  const auto& [described, shown, problem] = GetParam();
  const Detection detection = numbered(described, shown);
  ASSERT_TRUE(shownBoard(detection));
  EXPECT_EQ(shownBoard(detection)->extent, shown);
  EXPECT_EQ(sizeProblem(detection, detection), problem);
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, BoardExtentOf,
    testing::Values(Case{{17, 15}, {17, 15}, ""},
                    Case{{15, 17},
                         {17, 15},
                         "Both pictures show 17 columns and 15 rows of dots, and the board is described with 15 and "
                         "17: columns and rows are exchanged"},
                    Case{
                        {19, 17},
                        {17, 15},
                        "Both pictures show 17 columns and 15 rows of dots, and the board is described with 19 and 17"},
                    Case{{17, 13},
                         {17, 15},
                         "Both pictures show 17 columns and 15 rows of dots, and the board is described with 17 and "
                         "13"}));

TEST(BoardExtent, IsThatOfMostRowsWhereDotsAreMissing) {
  Detection detection = numbered({9, 7}, {9, 7});
  const std::set<int> hidden = {0, 11, 30, 62};
  std::erase_if(detection.dots, [&](const polarline::Dot& dot) { return hidden.count(dot.id) != 0; });
  for (auto id = hidden.rbegin(); id != hidden.rend(); ++id) detection.ellipses.erase(detection.ellipses.begin() + *id);
  EXPECT_EQ(shownBoard(detection)->extent, (BoardExtent{9, 7}));
}

TEST(BoardExtent, IsNoneOfTooFewDots) {
  Detection detection = numbered({9, 7}, {9, 7});
  detection.dots.resize(1);
  EXPECT_FALSE(shownBoard(detection));
  detection.dots.clear();
  EXPECT_FALSE(shownBoard(detection));
}

TEST(BoardExtent, OfAPartOfTheBoardIsNoProblem) {
  const Detection whole = numbered({9, 7}, {9, 7});
  Detection part = whole;
  std::erase_if(part.dots, [](const polarline::Dot& dot) { return dot.column == 8; });
  std::erase_if(part.ellipses, [&](const polarline::SeenEllipse& seen) {
    return std::ranges::none_of(part.dots,
                                [&](const polarline::Dot& dot) { return dot.x == seen.x && dot.y == seen.y; });
  });
  EXPECT_EQ(sizeProblem(part, part), "");
  EXPECT_EQ(sizeProblem(numbered({9, 7}, {11, 7}), whole), "") << "only one picture shows more";
}

TEST(BoardExtent, IsSeenInARenderedPicture) {
  const RenderedSet& set = RenderedSet::of("ring_320");  // 17 x 15
  const auto problem = [&](const char* board) {
    return sizeProblem(polarline::readPicture(set.file("left_0.png")), polarline::readPicture(set.file("right_0.png")),
                       polarline::targetIni(polarline::parseBoard(board)));
  };
  EXPECT_EQ(problem("rings-small:17x15:17.5"), "");
  EXPECT_THAT(problem("rings-small:15x17:17.5"), testing::HasSubstr("columns and rows are exchanged"));
  EXPECT_THAT(problem("rings-small:17x13:17.5"), testing::HasSubstr("show 17 columns and 15 rows"));
}

}  // namespace
