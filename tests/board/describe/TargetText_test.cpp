#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "Tallowfen/src/RingTarget.h"
#include "polarline/board.h"
#include "support/TempFolder.h"

namespace {

using polarline::BoardDescription;

class TargetTextOf : public testing::TestWithParam<const char*> {};

TEST_P(TargetTextOf, ReadsBackAsTheBoard) {
  const TempFolder folder;
  const BoardDescription board = polarline::parseBoard(GetParam());
  const std::string path = folder.write("target.ini", polarline::targetIni(board));
  const auto rings = board.kind == polarline::BoardKind::kBigRings     ? polarline::BoardRings::kBig
                     : board.kind == polarline::BoardKind::kMixedRings ? polarline::BoardRings::kMixed
                                                                       : polarline::BoardRings::kSmall;
  EXPECT_EQ(polarline::boardText(polarline::readBoard(path, rings)), polarline::boardText(board));
}

TEST_P(TargetTextOf, HasACommentAboveEachKey) {
  std::istringstream lines(polarline::targetIni(polarline::parseBoard(GetParam())));
  std::string before;
  int keys = 0;
  for (std::string line; std::getline(lines, line); before = line) {
    if (line.starts_with("#")) continue;
    EXPECT_TRUE(before.starts_with("# ")) << line;
    ++keys;
  }
  EXPECT_GE(keys, 11);
}

INSTANTIATE_TEST_SUITE_P(, TargetTextOf,
                         testing::Values("rings-small:35x37:17.1:inner=9x7:outter=17x13",
                                         "rings-big:35x37:20:dot=0.28:inner=7x7", "rings-mixed:17x15:0.015",
                                         "dots:35x37:12.5:step_y=13.7:dot=0.25",
                                         "dots:35x37:20:numbering=search:step_y=22:marks=5,20/12,20/12,14/6,14",
                                         "dots:35x37:12.5:marks=15,20/19,20/19,16/16,16"));

TEST(TargetText, KeepsTheDetectorsUsualLimits) {
  kestrune::RingTarget target;
  ASSERT_TRUE(target.loadConfig(polarline::targetIni(polarline::parseBoard("dots:35x37:20"))));
  const kestrune::RingTargetConfig& config = target.config();
  EXPECT_EQ(config.bin_method, 0);
  EXPECT_EQ(config.bin_blocksize, 200);
  EXPECT_EQ(config.min_radius, 1.0F);
  EXPECT_EQ(config.max_radius, 50.0F);
  EXPECT_EQ(config.max_sigma, 1.0F);
  EXPECT_EQ(config.min_circularity, 0.8F);
  EXPECT_EQ(config.detection_switch, 0);
}

}  // namespace
