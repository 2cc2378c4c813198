#include "store/results/SetRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "store/MadeStore.h"
#include "store/results/MadeRows.h"
#include "store/results/Schema.h"

namespace {

using namespace polarline::results;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct SetRowsOf : ::testing::Test {
  made_store::Results results;
  std::unique_ptr<sqlite::Database> database = openResultsToWrite(results.path());

  SetRowsOf() {
    database->run("INSERT INTO stores VALUES (1, '/s')");
    for (const char* name : {"0a", "0b"})
      database->run(std::string("INSERT INTO documents VALUES (NULL, 1, '") + name + "', 0, 0, 0, '', 0, 0, 0)");
  }
};

TEST_F(SetRowsOf, HaveWhatTheDocumentAndTheListSaid) {
  DocumentRows rows = made_rows::document();
  rows.seconds = 1.5;
  rows.is_diagnosed = true;
  rows.rows_before = 0.25;
  rows.board_rows = 3;
  rows.board_cols = 4;
  rows.camera_model = "brown5";
  rows.width = 40;
  rows.height = 30;
  SetRows(*database).add(
      1, "0a", rows,
      {{{"model", "K2"}, {"serial", "A-1"}, {"shift", "late"}, {"time", "2026-01-01T23:30:00-01:00"}}, "5e"});
  EXPECT_THAT(
      results.rows("SELECT document, name, inputs_sha256, settings, set_name, folder, serial, ifnull(station, '-'), "
                   "model, time, day, has_time, started, seconds FROM sets"),
      ElementsAre("1|0a|aa|5e|set|/sets/set|A-1|-|K2|2026-01-02T00:30:00Z|2026-01-02|1|2026-01-02T03:04:05Z|1.5"));
  EXPECT_THAT(
      results.rows("SELECT verdict, judged, status, status_code, retry, pairs, finished, diagnosed, rows_before, "
                   "rows_after IS NULL, board_rows, board_cols, camera_model, width, height, library FROM sets"),
      ElementsAre("pass|1|success|0|0|1|1|1|0.25|1|3|4|brown5|40|30|PolarLinePrecision 1.3.3"));
  EXPECT_THAT(results.rows("SELECT key, value FROM metadata"),
              ElementsAre("model|K2", "serial|A-1", "shift|late", "time|2026-01-01T23:30:00-01:00"));
}

TEST_F(SetRowsOf, NameEachFigureOnceHoweverManyPairsHaveIt) {
  DocumentRows rows = made_rows::document();
  rows.figures = {{0, "tri_dis", 1, false, -0.5},
                  {0, "dy_means", -1, true, 0.25, 0.125},
                  {1, "tri_dis", 1, false, 0.5},
                  {1, "tri_dis", 0, true, 2.0}};
  SetRows writer(*database);
  writer.add(1, "0a", rows, {});
  SetRows(*database).add(2, "0b", rows, {});  // Another merge, which knows nothing of the first.
  EXPECT_THAT(results.rows("SELECT name, figure, ifnull(entry, '-'), refined FROM figure_names ORDER BY id"),
              ElementsAre("tri_dis[1]|tri_dis|1|0", "refined.dy_means|dy_means|-|1", "refined.tri_dis[0]|tri_dis|0|1"));
  EXPECT_THAT(
      results.rows("SELECT pair, name, value, ifnull(sd, '-') FROM figure_values WHERE set_id = 1 ORDER BY 1, 2"),
      ElementsAre("0|refined.dy_means|0.25|0.125", "0|tri_dis[1]|-0.5|-", "1|refined.tri_dis[0]|2.0|-",
                  "1|tri_dis[1]|0.5|-"));
}

TEST_F(SetRowsOf, GiveAReasonToAPairGivenUpOnly) {
  DocumentRows rows = made_rows::document();
  rows.pairs[0].coverage = 0.5;
  rows.pairs.push_back({1, "l1.png", "r1.png", "given up", -6, "few dots", "left", "ellipses", 4, 12});
  SetRows(*database).add(1, "0a", rows, {});
  EXPECT_THAT(results.rows("SELECT pair, \"left\", state, ifnull(reason_code, '-'), ifnull(reason_text, '-'), "
                           "ifnull(reason_side, '-'), ifnull(reason_step, '-'), found_left, found_right, "
                           "ifnull(coverage, '-') FROM pairs"),
              ElementsAre("0|l.png|finished|-|-|-|-|12|11|0.5", "1|l1.png|given up|-6|few dots|left|ellipses|4|12|-"));
}

TEST_F(SetRowsOf, KeepTheOrderOfLimitsAndWarnings) {
  DocumentRows rows = made_rows::document();
  rows.limits = {{"tri_rms<=1", 2.0, false, 3}, {"given_up<=0", 0.0, true, {}}, {"tri_rms<=1", 2.0, false, 3}};
  rows.warnings = {{"dark", "b", {}}, {"blurred", "a", 1}};
  rows.causes = {{"rotation_x", "deg", 0.05, 0.01, 0.9, 2}, {"k1", "", 0.1, 0.02, 0.05, {}}};
  SetRows(*database).add(1, "0a", rows, {});
  EXPECT_THAT(results.rows("SELECT position, text, value, holds, ifnull(pair, '-') FROM limits"),
              ElementsAre("0|tri_rms<=1|2.0|0|3", "1|given_up<=0|0.0|1|-", "2|tri_rms<=1|2.0|0|3"));
  EXPECT_THAT(results.rows("SELECT text FROM limit_rules"), ElementsAre("given_up<=0", "tri_rms<=1"));
  EXPECT_THAT(results.rows("SELECT position, code, ifnull(pair, '-'), text FROM warnings"),
              ElementsAre("0|dark|-|b", "1|blurred|1|a"));
  EXPECT_THAT(results.rows("SELECT name, value, sd, unit, share, ifnull(alike, '-') FROM causes"),
              ElementsAre("k1|0.1|0.02||0.05|-", "rotation_x|0.05|0.01|deg|0.9|2"));
}

TEST_F(SetRowsOf, OfADocumentJudgedAnewReplaceAllButTheMetadata) {
  SetRows writer(*database);
  DocumentRows rows = made_rows::document();
  rows.warnings = {{"dark", "b", {}}};
  writer.add(1, "0a", rows, {{{"station", "3"}, {"time", "2026-01-01"}}, "5e"});
  DocumentRows anew = made_rows::document("2026-02-02T00:00:00Z");
  anew.verdict = "fail";
  anew.figures = {{0, "dy_max", -1, false, 9.0}};
  writer.replace(1, 2, anew);
  EXPECT_THAT(results.rows("SELECT document, verdict, station, time, started FROM sets"),
              ElementsAre("2|fail|3|2026-01-01T00:00:00Z|2026-02-02T00:00:00Z"));
  EXPECT_THAT(results.rows("SELECT name FROM figure_values"), ElementsAre("dy_max"));
  EXPECT_THAT(results.rows("SELECT * FROM warnings"), IsEmpty());
  EXPECT_EQ(results.one("SELECT count(*) FROM pairs"), "1");
}

TEST_F(SetRowsOf, WithoutATimeStandAtTheBeginOfTheCheck) {
  SetRows writer(*database);
  writer.add(1, "0a", made_rows::document(), {{{"time", "yesterday"}, {"station", ""}}, ""});
  EXPECT_EQ(results.one("SELECT time, has_time, station IS NULL FROM sets"), "2026-01-02T03:04:05Z|0|1");
  writer.replace(1, 1, made_rows::document("2026-02-02T00:00:00Z"));
  EXPECT_EQ(results.one("SELECT time FROM sets"), "2026-02-02T00:00:00Z");
  writer.setMetadata(1, {{{"time", "2026-03-03"}}, ""});
  writer.setMetadata(1, {});
  EXPECT_EQ(results.one("SELECT time, has_time FROM sets"), "2026-02-02T00:00:00Z|0");
  EXPECT_THAT(results.rows("SELECT * FROM metadata"), IsEmpty());
}

}  // namespace
