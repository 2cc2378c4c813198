// The frame switch at the export that reads its images from disk: it takes the rows' cells away and nothing else.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/ConsoleLines.h"
#include "support/FigureText.h"
#include "support/FolderContents.h"
#include "support/SpoiledSet.h"

namespace {

struct FrameSwitch : SpoiledSet {
  /// Bytes of the files that the run wrote; they are taken away for the next one.
  std::map<std::string, std::string> written() {
    std::map<std::string, std::string> files = contentsOf(folder.path());
    for (const auto& [name, bytes] : before) files.erase(name);
    for (const auto& [name, bytes] : files) std::filesystem::remove(folder.path() / name);
    return files;
  }
  std::map<std::string, std::string> before;
};

TEST_F(FrameSwitch, LeavesTheOtherSwitchesTheirEvaluationsFilesAndColumns) {
  const std::string polar = folder.read("polar.txt") + "eccentricity: 1\n";
  folder.write("polar.txt", polar);
  folder.write("frames.txt", polar +
                                 "frame_work: 1\nFrame_ID: [1,2]\nFrame_ID_DIS: [[1,2]]\nFrame_3D: [[0,0,0],[9,0,0]]\n"
                                 "Frame_IRL: [[100,100],[160,100]]\nFrame_IRR: [[100,100],[160,100]]\n");
  before = contentsOf(folder.path());
  ASSERT_EQ(run(), 0);
  const std::string figures = FigureText::of(results);
  const auto steps = console_lines::stepsOf(out);
  auto files = written();
  ASSERT_EQ(run("calib.json", "frames.txt"), 0);

  EXPECT_EQ(FigureText::of(results), figures);
  EXPECT_EQ(console_lines::stepsOf(out), steps);
  for (const PolarResultRecord& record : results) EXPECT_TRUE(record.frameValues.empty());
  auto frame_files = written();
  const std::vector<std::string> table = console_lines::linesOf(files["align_data_0.csv"]);
  const std::vector<std::string> frame_table = console_lines::linesOf(frame_files["align_data_0.csv"]);
  ASSERT_EQ(table.size(), 4U);
  ASSERT_EQ(frame_table.size(), 4U);
  EXPECT_EQ(std::count(table[0].begin(), table[0].end(), ','), 4 + 8 + 3 + 1 + 3 + 8 + 1);
  EXPECT_EQ(frame_table[0], table[0]);
  EXPECT_EQ(frame_table[1], "Images_num_: 1_PolarVersion_: 1.3.3");
  EXPECT_EQ(frame_table[2], "Images_num_: 2_PolarVersion_: 1.3.3");
  EXPECT_EQ(frame_table[3], "");
  files.erase("align_data_0.csv");
  frame_files.erase("align_data_0.csv");
  EXPECT_GT(files.size(), 10U);
  EXPECT_EQ(frame_files, files);
}

}  // namespace
