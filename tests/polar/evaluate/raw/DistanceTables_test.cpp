#include "polar/evaluate/raw/DistanceTables.h"

#include <gtest/gtest.h>

#include "support/EvaluatorFixture.h"

namespace {

void writeEach(const PairEvaluator& evaluator, bool with_board_check) {
  DistanceTables tables(evaluator, with_board_check);
  tables.distances().row(1);
  tables.points().row(2);
  tables.boardCheck().row(3);
  DistanceTables::columnHeader(tables.boardCheck(), "figure");
}

TEST(DistanceTables, ThreeFilesOfThePairsNumber) {
  EvaluatorFixture fixture;
  fixture.config.discalsave = true;
  PairEvaluator evaluator = fixture.evaluator();
  evaluator.image_id = 4;
  writeEach(evaluator, true);
  EXPECT_EQ(fixture.folder.read("4_diserr.csv"), "1\n");
  EXPECT_EQ(fixture.folder.read("4_tripoints.csv"), "2\n");
  EXPECT_EQ(fixture.folder.read("4_boardcheck.csv"), "3\nid_, ,figure\n");
}

TEST(DistanceTables, TablesOfAnEarlierRunAreReplaced) {
  EvaluatorFixture fixture;
  fixture.config.discalsave = true;
  for (const char* suffix : {"diserr", "tripoints", "boardcheck"}) {
    fixture.folder.write("0_" + std::string(suffix) + ".csv", "what an earlier run left here, longer than it all\n");
  }
  writeEach(fixture.evaluator(), true);
  EXPECT_EQ(fixture.folder.read("0_diserr.csv"), "1\n");
  EXPECT_EQ(fixture.folder.read("0_tripoints.csv"), "2\n");
  EXPECT_EQ(fixture.folder.read("0_boardcheck.csv"), "3\nid_, ,figure\n");
}

TEST(DistanceTables, BoardCheckIsLeftOutWhereItIsNotWanted) {
  EvaluatorFixture fixture;
  fixture.config.discalsave = true;
  writeEach(fixture.evaluator(), false);
  EXPECT_TRUE(fixture.folder.has("0_diserr.csv"));
  EXPECT_FALSE(fixture.folder.has("0_boardcheck.csv"));
}

TEST(DistanceTables, NothingWithoutTheSwitchOrTheFolder) {
  EvaluatorFixture fixture;
  writeEach(fixture.evaluator(), true);
  fixture.config.discalsave = true;
  fixture.config.result_folder.clear();
  writeEach(fixture.evaluator(), true);
  EXPECT_TRUE(std::filesystem::is_empty(fixture.folder.path()));
}

}  // namespace
