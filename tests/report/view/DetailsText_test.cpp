#include "report/view/DetailsText.h"

#include <gtest/gtest.h>

#include <string>

#include "MadeDocument.h"

namespace polarline {
namespace {

Json detailsOf(const Check& check, const PairPictures& pictures = {}) {
  const ReadCheck read = made_document::read(check);
  return Json::parse(detailsText(read.pairs[0], check.pairs[0].finished, pictures, Board(read.json),
                                 CausePattern(read.json, knownCameras(read.json))));
}

TEST(DetailsTextPoints, AreTheDocumentsDigitByDigit) {
  const Json document = made_document::json(made_document::check());
  const Json details = detailsOf(made_document::check());
  for (const char* key : {"id", "left_x", "left_y", "right_x", "right_y", "dy", "residual", "x", "y", "z",
                          "rectified_left_x", "rectified_right_y"})
    EXPECT_EQ(details["points"][key].dump(), document["pairs"][0]["points"][key].dump()) << key;
}

TEST(DetailsTextPoints, HaveTheirPlacesOnTheBoard) {
  const Json points = detailsOf(made_document::check())["points"];
  EXPECT_EQ(points["column"][7], 3);
  EXPECT_EQ(points["row"][7], 1);
  EXPECT_EQ(points["board_x"][7], 30.0);
  EXPECT_EQ(points["board_y"][7], 10.0);
  EXPECT_EQ(points["disparity"][7], 5.0);
  EXPECT_NEAR(points["off_z"][7].get<double>(), 0.0, 1e-6);
  EXPECT_TRUE(points["dy_pattern"].empty());
}

TEST(DetailsTextPoints, OfAFrameStandInNoRowsAndColumns) {
  Check check = made_document::check();
  check.settings = {{"frame_work", "1"}, {"Frame_3D", "[[60, 0, 1], [180, 40, 2]]"}};
  check.pairs[0].points = {};
  check.pairs[0].points.id = {1, 2};
  const Json points = detailsOf(check)["points"];
  EXPECT_TRUE(points["column"].empty());
  EXPECT_TRUE(points["row"].empty());
  EXPECT_EQ(points["board_x"], Json::parse("[60, 180]"));
}

TEST(DetailsTextPoints, EveryListIsAsLongAsTheIds) {
  Check check = made_document::check();
  check.pairs[0].points = {};
  check.pairs[0].points.id = {2, 99};
  check.pairs[0].points.left_x = {1.0F, 2.0F};
  const Json details = detailsOf(check);
  for (const auto& [key, list] : details["points"].items()) {
    const bool may_be_empty = key.rfind("rectified", 0) == 0 || key == "dy_pattern";
    EXPECT_EQ(list.size(), may_be_empty ? 0U : 2U) << key;
  }
  EXPECT_TRUE(details["points"]["board_x"][1].is_null()) << "no dot of the board";
  EXPECT_TRUE(details["points"]["dy"][0].is_null());
  EXPECT_TRUE(details["statistics"]["dy"].is_null());
  EXPECT_TRUE(details["statistics"]["dy_along"].is_null());
}

TEST(DetailsTextStatistics, AreThere) {
  const Json statistics = detailsOf(made_document::check())["statistics"];
  EXPECT_NEAR(statistics["dy"]["mean"].get<double>(), 0.055, 1e-8);
  EXPECT_EQ(statistics["dy"]["count"], 12);
  EXPECT_EQ(statistics["worst"][0], 11);
  EXPECT_EQ(statistics["dy_along"]["count"], Json::parse("[3, 3, 3, 3]"));
  EXPECT_EQ(statistics["sentences"].size(), 10U);
  EXPECT_TRUE(statistics["remains"].is_null());
  EXPECT_FALSE(statistics["distances"].empty());
}

TEST(DetailsTextRemains, HaveStatisticsAndSentencesOfTheirOwn) {
  Check check = made_document::check();
  check.diagnosis.emplace();
  check.diagnosis->causes = {{"row_offset", 0.5, 0.0, "", 1.0, "text", 0}};
  const Json remains = detailsOf(check)["statistics"]["remains"];
  EXPECT_NEAR(remains["dy"]["mean"].get<double>(), 0.555, 1e-8);
  EXPECT_EQ(remains["dy_along"]["count"], Json::parse("[3, 3, 3, 3]"));
  EXPECT_EQ(remains["sentences"].size(), 4U);
}

TEST(DetailsTextRefined, StandBesideTheDetected) {
  EXPECT_TRUE(detailsOf(made_document::check())["refined_points"].is_null());
  Check check = made_document::check();
  check.pairs[0] = hand_made::refined(check.pairs[0], {0.01}, {});
  static_cast<PairPoints&>(check.pairs[0].refined->points) = made_document::wholeBoard();
  const Json details = detailsOf(check);
  EXPECT_EQ(details["refined_points"], details["points"]);
  EXPECT_EQ(details["refined_statistics"], details["statistics"]);
}

TEST(DetailsTextRefined, TellHowCertainEachCentreIs) {
  Check check = made_document::check();
  check.pairs[0] = hand_made::refined(check.pairs[0], {0.01}, {});
  RefinedPoints& points = check.pairs[0].refined->points;
  points.id = {0, 1};
  points.left_sd_x = {0.25F, NAN};
  points.left_state = {DotState::kRefined, DotState::kClipped};
  points.right_state = {DotState::kRefined, DotState::kRefined};
  const Json refined = detailsOf(check)["refined_points"];
  EXPECT_EQ(refined["left_sd_x"], Json::parse("[0.25, null]"));
  EXPECT_EQ(refined["left_state"], Json::parse(R"(["refined", "clipped"])"));
  EXPECT_EQ(refined["right_sd_y"], Json::parse("[null, null]"));
  EXPECT_FALSE(detailsOf(check)["points"].contains("left_state"));
}

TEST(DetailsTextGivenUp, HasPicturesOnly) {
  Check check = made_document::check();
  check.pairs[0] = hand_made::givenUp(check.pairs[0]);
  PairPictures pictures;
  pictures.left = PagePicture{"data:a", {40, 30}};
  pictures.failed = FailedStep{{"data:b", {80, 70}}, "left picture", "no outline"};
  const Json details = detailsOf(check, pictures);
  EXPECT_TRUE(details["points"].is_null());
  EXPECT_TRUE(details["statistics"].is_null());
  EXPECT_EQ(details["pictures"].dump(), R"({"left":{"source":"data:a","width":40,"height":30},"right":null})");
  EXPECT_EQ(details["failed_step"].dump(),
            R"({"source":"data:b","width":80,"height":70,"seen":"left picture","text":"no outline"})");
}

}  // namespace
}  // namespace polarline
