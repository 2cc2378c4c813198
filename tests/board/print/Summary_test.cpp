#include <gtest/gtest.h>

#include <string>

#include "polarline/board.h"
#include "support/DocumentCheck.h"

namespace {

TEST(Summary, SaysBoardSheetAndWhatToLookAt) {
  const auto board = polarline::parseBoard("rings-big:35x37:20");
  const auto printed = polarline::printBoard(board, {});
  const std::string text = polarline::boardSummary(board, printed);
  EXPECT_TRUE(
      text.starts_with("rings-big:35x37:20:inner=9x7:outter=17x13, up to 1275 of 1295 ids to be detected, on own size"))
      << text;
  EXPECT_TRUE(text.ends_with("Print it at 100 %: the ruler must measure 100 mm.")) << text;
}

TEST(Summary, SaysTheSameInJson) {
  const auto board = polarline::parseBoard("dots:9x7:10:step_y=12");
  polarline::BoardPrint print;
  print.paper = polarline::Paper::kA4;
  const auto json = DocumentCheck::of("board").parsed(polarline::boardJson(board, polarline::printBoard(board, print)));
  EXPECT_EQ(json["schema"], "polarline-board/1");
  EXPECT_EQ(json["board"]["type"], 3);
  EXPECT_EQ(json["board"]["rows"], 7);
  EXPECT_EQ(json["board"]["cols"], 9);
  EXPECT_EQ(json["board"]["step_y"], 12.0);
  EXPECT_EQ(json["board"]["detectable_points"], 63);
  EXPECT_EQ(json["sheet"]["paper"], "A4");
  EXPECT_EQ(json["sheet"]["width_mm"], 210.0);
  EXPECT_EQ(json["sheet"]["ruler_mm"], 100.0);
}

}  // namespace
