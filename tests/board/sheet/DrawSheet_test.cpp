#include "board/sheet/DrawSheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "RefusedWith.h"
#include "polarline/board.h"

namespace {

using boards::Bar;
using boards::Caption;
using boards::Disc;
using boards::Sheet;
using polarline::Paper;

struct Case {
  const char* board;
  Paper paper;
};

class DrawSheetOf : public testing::TestWithParam<Case> {
 protected:
  Sheet sheet() const {
    polarline::BoardPrint print;
    print.paper = GetParam().paper;
    return boards::drawSheet(board_, print);
  }
  polarline::BoardDescription board_ = polarline::parseBoard(GetParam().board);
};

/// The rectangle of all ink of dots and markers.
struct InkExtent {
  explicit InkExtent(const Sheet& sheet) {
    for (const Disc& disc : sheet.discs) {
      left = std::min(left, disc.x - disc.radius);
      right = std::max(right, disc.x + disc.radius);
      top = std::min(top, disc.y - disc.radius);
      bottom = std::max(bottom, disc.y + disc.radius);
    }
  }
  double left = 1e9, right = 0.0, top = 1e9, bottom = 0.0;
};

TEST_P(DrawSheetOf, LeavesTwoPitchesOfWhite) {
  const Sheet sheet = this->sheet();
  const InkExtent ink(sheet);
  const double rows = board_.step_y == 0.0 ? board_.step : board_.step_y;
  EXPECT_GE(ink.left, 2.0 * board_.step - 1e-9);
  EXPECT_LE(ink.right, sheet.width - 2.0 * board_.step + 1e-9);
  for (const Caption& caption : sheet.captions) {
    const bool above = caption.y + 0.25 * caption.size <= ink.top - 2.0 * rows + 1e-9;
    const bool below = caption.y - caption.size >= ink.bottom + 2.0 * rows - 1e-9;
    EXPECT_TRUE(above || below) << caption.text;
    EXPECT_GE(caption.y - caption.size, 5.0 - 1e-9) << caption.text;
    EXPECT_LE(caption.y, sheet.height - 5.0) << caption.text;
  }
  for (const Bar& bar : sheet.bars) {
    EXPECT_TRUE(bar.y >= ink.bottom + 2.0 * rows || bar.y + bar.height <= ink.top - 2.0 * rows + 1e-9);
  }
}

TEST_P(DrawSheetOf, NamesTheCornersAboveAndBelowThem) {
  const Sheet sheet = this->sheet();
  const Disc& first = sheet.discs.front();
  const double last_x = first.x + (board_.cols - 1) * board_.step;
  const int below = (board_.rows - 1) * board_.cols;
  const std::map<std::string, double> wanted = {{"0", first.x},
                                                {std::to_string(board_.cols - 1), last_x},
                                                {std::to_string(below), first.x},
                                                {std::to_string(below + board_.cols - 1), last_x}};
  for (int corner = 0; corner < 4; ++corner) {
    const Caption& caption = sheet.captions[static_cast<std::size_t>(corner)];
    ASSERT_TRUE(wanted.contains(caption.text)) << caption.text;
    EXPECT_NEAR(caption.x, wanted.at(caption.text), 1e-9);
    EXPECT_EQ(caption.y < first.y, corner < 2);
  }
}

TEST_P(DrawSheetOf, HasARulerOfAHundredUnits) {
  const Sheet sheet = this->sheet();
  const Bar& base = sheet.bars.front();
  EXPECT_EQ(base.width, 100.0);
  ASSERT_GE(sheet.bars.size(), 12U);
  for (std::size_t tick = 1; tick < 12; ++tick) {
    const Bar& bar = sheet.bars[tick];
    EXPECT_NEAR(bar.x + bar.width / 2.0, base.x + 10.0 * static_cast<double>(tick - 1), 1e-9);
  }
  EXPECT_GE(base.x, 5.0);
  EXPECT_LE(base.x + base.width, sheet.width - 5.0);
}

TEST_P(DrawSheetOf, PrintsLettersSmallerThanItsDots) {
  for (const Caption& caption : sheet().captions) EXPECT_LT(0.75 * caption.size, 2.0 * board_.dot_radius * board_.step);
}

INSTANTIATE_TEST_SUITE_P(, DrawSheetOf,
                         testing::Values(Case{"rings-small:17x15:14", Paper::kA3},
                                         Case{"rings-big:35x37:20", Paper::kFit},
                                         Case{"rings-mixed:35x37:14.2", Paper::kA1},
                                         Case{"dots:26x16:15:step_y=18", Paper::kA2}, Case{"dots:9x9:4", Paper::kA4},
                                         Case{"dots:21x19:20:marks=0,4/4,4/4,0/1,0", Paper::kFit}));

TEST(DrawSheet, PrintsTitleWordsAndVersion) {
  polarline::BoardPrint print;
  print.title = "Line 3\n\xFF";
  const Sheet sheet = boards::drawSheet(polarline::parseBoard("dots:9x9:20"), print);
  const std::size_t last = sheet.captions.size() - 1;
  EXPECT_EQ(sheet.captions[last - 2].text, "Line 3 \xEF\xBF\xBD");
  EXPECT_EQ(sheet.captions[last - 1].text,
            "dots:9x9:20:inner=5x5:outter=7x7, 160 x 160 mm between the outermost centres");
  EXPECT_EQ(sheet.captions[last].text.substr(0, 10), "polarline ");
  EXPECT_EQ(sheet.title, "Line 3 \xEF\xBF\xBD");
}

TEST(DrawSheet, RefusesABoardInMetres) {
  expectRefused(
      [] { boards::drawSheet(polarline::parseBoard("dots:9x9:0.02"), {}); },
      "found dots of 0.012 mm at a step of 0.02, wanted at least 0.3 mm; a board unit is printed as a millimetre");
}

TEST(DrawSheet, JoinsTheLettersOfEachCaption) {
  const Sheet sheet = boards::drawSheet(polarline::parseBoard("dots:9x9:20"), {});
  ASSERT_EQ(sheet.bars.size(), 12 + 2 * sheet.captions.size());
  for (std::size_t i = 0; i < sheet.captions.size(); ++i) {
    const Caption& caption = sheet.captions[i];
    const Bar& feet = sheet.bars[12 + 2 * i];
    const Bar& capitals = sheet.bars[13 + 2 * i];
    EXPECT_LT(feet.y, caption.y);
    EXPECT_GT(feet.y + feet.height, caption.y);
    EXPECT_NEAR(capitals.y + capitals.height, caption.y - 0.66 * caption.size, 1e-9);  // Capitals are 0.72 high.
    EXPECT_NEAR(feet.x + feet.width / 2.0, caption.x, 1e-9);
    EXPECT_GE(feet.width, 0.64 * caption.size * static_cast<double>(caption.text.size()));
    EXPECT_EQ(feet.width, capitals.width);
  }
}

TEST(DrawSheet, ShrinksALongTitleAndRefusesALongerOne) {
  const polarline::BoardDescription board = polarline::parseBoard("dots:9x9:20");  // 252 mm wide, 242 for the print.
  polarline::BoardPrint print;
  print.title.assign(200, 'M');
  const Sheet sheet = boards::drawSheet(board, print);
  EXPECT_NEAR(sheet.captions[sheet.captions.size() - 3].size, 242.0 / 201.0, 1e-9);
  print.title.assign(600, 'M');
  expectRefused([&] { boards::drawSheet(board, print); }, "title: found a line of 480 mm in the smallest print");
}

}  // namespace
