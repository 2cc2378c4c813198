#include <gtest/gtest.h>

#include <string>

#include "RefusedWith.h"
#include "polarline/board.h"
#include "support/TempFolder.h"

namespace {

using polarline::BoardDescription;
using polarline::BoardKind;
using polarline::BoardRings;
using polarline::readBoard;

constexpr const char* kRingIni =
    "rows: 15\ncols: 17\ninner_width: 9\ninner_height: 7\noutter_width: 15\noutter_height: 13\nstep: 17.1\n"
    "board_type: 1\nratio_solid: 0.31\n";
const std::string kDotKeys =
    "board_type: 3\nrows: 16\ncols: 26\ninner_width: 5\ninner_height: 5\nstep: 20\nstep_y: 22\n";

TEST(ReadBoard, TakesTheGeometryAndTheRingsThatAreAskedFor) {
  const TempFolder folder;
  const std::string path = folder.write("my \"target\".ini", kRingIni);
  const BoardDescription board = readBoard(path);
  EXPECT_EQ(board.kind, BoardKind::kSmallRings);
  EXPECT_EQ(board.cols, 17);
  EXPECT_EQ(board.rows, 15);
  EXPECT_EQ(board.inner_width, 9);
  EXPECT_EQ(board.outter_height, 13);
  EXPECT_EQ(board.step, 17.1);
  EXPECT_EQ(board.dot_radius, 0.31);
  EXPECT_EQ(readBoard(path, BoardRings::kMixed).kind, BoardKind::kMixedRings);
}

TEST(ReadBoard, TakesEveryFormOfDocument) {
  const TempFolder folder;
  const std::string json = folder.write(
      "t.json", R"({"patterns": [{"rows": 15, "cols": 17, "inner_width": 5, "inner_height": 5, "step": 20.0,
      "board_type": 3}]})");
  const std::string yml =
      folder.write("t.yml",
                   "%YAML:1.0\n---\npatterns:\n   -\n      rows: 15\n      cols: 17\n"
                   "      inner_width: 5\n      inner_height: 5\n      step: 20.\n      board_type: 3\n");
  const std::string xml =
      folder.write("t.xml",
                   "<?xml version=\"1.0\"?>\n<opencv_storage>\n<patterns><_><rows>15</rows><cols>17</cols>"
                   "<inner_width>5</inner_width><inner_height>5</inner_height><step>20.</step>"
                   "<board_type>3</board_type></_></patterns>\n</opencv_storage>\n");
  for (const std::string& path : {json, yml, xml}) {
    const BoardDescription board = readBoard(path);
    EXPECT_EQ(board.kind, BoardKind::kBigDots) << path;
    EXPECT_EQ(board.rows, 15) << path;
    EXPECT_EQ(board.step, 20.0) << path;
    EXPECT_EQ(board.dot_radius, 0.3) << path;
  }
}

TEST(ReadBoard, TakesLandMarksInTenthsOfAPitchOrInBoardUnits) {
  const TempFolder folder;
  const std::string growth =
      kDotKeys +
      "land_mark_switch: 1\nland_mark1_x: 50\nland_mark1_y: 100\nland_mark2_x: 120\n"
      "land_mark2_y: 100\nland_mark3_x: 120\nland_mark3_y: 50\nland_mark4_x: 60\nland_mark4_y: 50\n";
  const std::string search = kDotKeys +
                             "id_method: 1\nland_mark_switch: 1\nland_mark1_x: 100\nland_mark1_y: 220\n"
                             "land_mark2_x: 240\nland_mark2_y: 220\nland_mark3_x: 240\nland_mark3_y: 110\n"
                             "land_mark4_x: 120\nland_mark4_y: 110\n";
  for (const std::string& text : {growth, search}) {
    const BoardDescription board = readBoard(folder.write("t.ini", text));
    ASSERT_EQ(board.land_marks.size(), 4U);
    EXPECT_EQ(board.land_marks[0].column, 5);
    EXPECT_EQ(board.land_marks[0].row, 10);
    EXPECT_EQ(board.land_marks[3].column, 6);
    EXPECT_EQ(board.land_marks[3].row, 5);
  }
}

struct Refused {
  const char* name;
  const char* file;
  std::string content;
  const char* words;
};

class ReadBoardRefused : public testing::TestWithParam<Refused> {};

TEST_P(ReadBoardRefused, NamesFileAndReason) {
  const TempFolder folder;
  const std::string path = folder.write(GetParam().file, GetParam().content);
  expectRefused([&] { readBoard(path); }, path + ": ");
  expectRefused([&] { readBoard(path); }, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    , ReadBoardRefused,
    testing::Values(
        Refused{"WrongName", "target.txt", kRingIni, "wanted a name that ends in ini"},
        Refused{"Empty", "target.ini", "", "is empty"},
        Refused{"UnknownType", "target.ini", "board_type: 5\n", "board_type: wanted 1, 2 or 3"},
        Refused{"NoJson", "target.json", "{\"patterns\": [", "is no target configuration"},
        Refused{"NoPatterns", "target.json", "{\"board_type\": 3}", "is no target configuration"},
        Refused{"NoRows", "target.ini", "board_type: 3\ncols: 15\nstep: 20\n", "15 columns and 0 rows"},
        Refused{"UnknownNumbering", "target.ini", kDotKeys + "id_method: 2\n", "id_method: found 2, wanted 0 or 1"},
        Refused{"LandMarkBesideTheGrid", "target.ini", kDotKeys + "land_mark_switch: 1\nland_mark1_x: 5\n",
                "land_mark1_x, land_mark1_y: found 5, 0, wanted a place of the grid: 10 for each column"},
        Refused{"SearchByAStepBeyondWholeNumbers", "target.ini",
                "board_type: 3\nrows: 16\ncols: 26\ninner_width: 5\ninner_height: 5\nstep: 2e37\nstep_y: 2e37\n"
                "id_method: 1\nland_mark_switch: 1\n",
                "found step 2e+37"},
        Refused{"SearchWithoutStepY", "target.ini",
                "board_type: 3\nrows: 16\ncols: 26\ninner_width: 5\ninner_height: 5\nstep: 20\nid_method: 1\n",
                "step_y written out"}),
    [](const auto& each) { return each.param.name; });

TEST(ReadBoard, WantsAFile) {
  const TempFolder folder;
  expectRefused([&] { readBoard(folder.file("none.ini")); }, "none.ini: there is no such file");
  expectRefused([&] { readBoard(folder.path().string()); }, "is no file");
}

}  // namespace
